# add_screens(NAME): the screens of one folder, part of the library vellumark_screens. Each folder is a target of its
# own because uic's output goes stale for forms that lie in another folder than their CMakeLists.
function(add_screens name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h *.ui)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  set(target vellumark_screens_${name})
  add_library(${target} OBJECT ${sources})
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON)
  target_link_libraries(${target} PUBLIC vellumark_core Qt6::Widgets Qt6::Svg Qt6::PrintSupport)
  # What uic and moc write isn't held to the warnings of this project.
  target_include_directories(${target} SYSTEM PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include)
  if(VELLUMARK_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${PROJECT_SOURCE_DIR}/src/platform/screens/precompiled.h)
    target_compile_options(${target} PRIVATE -fpch-preprocess)
  endif()
  target_link_libraries(vellumark_screens PUBLIC ${target})
endfunction()
