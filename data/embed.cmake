# cmake -P embed.cmake <output.cpp> <text file>...
# Writes a source file that holds the text files, in the order given.

cmake_minimum_required(VERSION 3.25)

# Arguments 0 to 2 are the cmake program, -P and this script.
set(output "${CMAKE_ARGV3}")
math(EXPR last "${CMAKE_ARGC} - 1")

set(source "#include \"starter_files.h\"\n\nnamespace vellumark {\n\n")
string(APPEND source "std::span<const std::string_view> StarterFiles() {\n")
string(APPEND source "    static constexpr std::string_view kStarterFiles[] = {\n")
foreach(index RANGE 4 ${last})
  set(file "${CMAKE_ARGV${index}}")
  file(READ "${file}" text)
  if(NOT text MATCHES "^Name: [^\n]+\n(Type: [CIRDTS]\n)?\n[^\n]")
    message(FATAL_ERROR "${file} does not start with its name, its type and an empty line.")
  endif()
  # Square brackets and semicolons would change their meaning in CMake, quotes in generated SQL.
  if(NOT text MATCHES "\n$" OR text MATCHES "[];['\"\\]|\n\n.*\n\n")
    message(FATAL_ERROR "${file} holds an empty line or one of [ ] ; ' \" \\.")
  endif()
  string(APPEND source "R\"vellumark(${text})vellumark\",\n")
endforeach()
string(APPEND source "    };\n    return kStarterFiles;\n}\n\n}  // namespace vellumark\n")

file(WRITE "${output}" "${source}")
