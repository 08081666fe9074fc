# Compiler cache, linker and warnings, for every target of the project.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM)
  add_link_options(-fuse-ld=lld)
endif()

# What the loader has bound can't be rewritten later.
add_link_options(-Wl,-z,relro,-z,now)

add_library(vellumark_settings INTERFACE)
target_include_directories(vellumark_settings INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(
  vellumark_settings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wno-sign-conversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Werror
            # GCC 12 sees overlaps in std::string's own code that are none.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_definitions(
  vellumark_settings
  INTERFACE VELLUMARK_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
            VELLUMARK_VERSION_MINOR=${PROJECT_VERSION_MINOR}
            VELLUMARK_VERSION_PATCH=${PROJECT_VERSION_PATCH})
