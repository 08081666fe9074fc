# The user's guide lies beside the programs in the build folder too.
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/help ${CMAKE_BINARY_DIR}/help SYMBOLIC)
