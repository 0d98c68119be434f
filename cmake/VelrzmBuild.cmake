# SPDX-License-Identifier: Apache-2.0
# How every target of the project is compiled: language, warnings, hardening, sanitizers.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

add_library(velrzm_build_options INTERFACE)
target_compile_options(velrzm_build_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wuseless-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wundef -Wduplicated-cond -Wlogical-op
  -fstack-protector-strong)
target_link_options(velrzm_build_options INTERFACE -Wl,-z,relro,-z,now)
if(VELRZM_WARNINGS_AS_ERRORS)
  target_compile_options(velrzm_build_options INTERFACE -Werror)
endif()
if(VELRZM_SANITIZE)
  target_compile_options(velrzm_build_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(velrzm_build_options INTERFACE -fsanitize=address,undefined)
else()
  target_compile_definitions(velrzm_build_options INTERFACE $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
endif()

# The flags above are GCC's; clang (clang-tidy, the fuzzers) reads the same command lines without these few.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(velrzm_build_options INTERFACE -Wno-unknown-warning-option)
endif()

# velrzm_server: what serves the QV_ functions of a program: the server's own library if there is one, and libqvlocal, whose
# administration the tools use in any case. The first in the link line is the one that serves.
if(VELRZM_QV_SDK AND NOT EXISTS ${VELRZM_QV_SDK})
  message(FATAL_ERROR "VELRZM_QV_SDK: there is no file ${VELRZM_QV_SDK}; name the server's client library, or leave it "
                      "empty to use the local server")
endif()
add_library(velrzm_server INTERFACE)
target_link_libraries(velrzm_server INTERFACE ${VELRZM_QV_SDK} qvlocal)

# velrzm_shared_library(TARGET MAP): a shared library whose visible names are those of the linker map, nothing else.
function(velrzm_shared_library target map)
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS ${map} EXPORT_NAME ${target})
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_link_options(${target} PRIVATE -Wl,--version-script=${map})
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:velrzm_build_options>)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  add_library(velrzm::${target} ALIAS ${target})
endfunction()
