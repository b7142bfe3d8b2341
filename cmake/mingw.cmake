# Builds the plain part and norvale-tool for Windows:
#   cmake -B build/windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw.cmake -DNORVALE_FORMS=OFF -DNORVALE_TESTS=OFF -DNORVALE_BENCH=OFF
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# One file that runs without the compiler's libraries beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# The libraries that are headers alone serve every system, but they lie among this machine's own headers, which a build for
# another one must not see. They get a place of their own. Their package files are copied, for a link leads back.
set(headers_alone ${CMAKE_CURRENT_LIST_DIR}/../build/headers-alone)
if(NOT EXISTS ${headers_alone}/include)
  file(MAKE_DIRECTORY ${headers_alone}/include)
  foreach(library CLI nlohmann)
    file(CREATE_LINK /usr/include/${library} ${headers_alone}/include/${library} SYMBOLIC)
  endforeach()
  foreach(package CLI11 nlohmann_json)
    file(GLOB found /usr/share/cmake/${package} /usr/lib/cmake/${package} /usr/lib/*/cmake/${package})
    file(COPY ${found} DESTINATION ${headers_alone}/share/cmake)
  endforeach()
endif()
list(APPEND CMAKE_PREFIX_PATH ${headers_alone})
