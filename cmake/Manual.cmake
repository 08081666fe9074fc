# cmake -P: prints a manual page with what a program tells of its own options and commands in place of @COMMANDS@.
# Arguments: PROGRAM INPUT OUTPUT
execute_process(COMMAND ${CMAKE_ARGV3} manual OUTPUT_VARIABLE COMMANDS COMMAND_ERROR_IS_FATAL ANY)
string(STRIP "${COMMANDS}" COMMANDS)
configure_file(${CMAKE_ARGV4} ${CMAKE_ARGV5} @ONLY)
