# SPDX-License-Identifier: Apache-2.0
# One case of the install test: cmake -D CASE=... -P install_test.cmake. The case Tree comes first.
cmake_minimum_required(VERSION 3.25)

set(tree ${WORK}/moved) # where the tree stands in the end; it is installed elsewhere, so that nothing may hold its prefix

# run(COMMAND...): runs a command in the work folder with a store in memory, keeps its output in `output`, fails with it.
function(run)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env QV_STORE=sqlite::memory: --unset=QVL_TRACE_LEVEL ${ARGN}
                  WORKING_DIRECTORY ${WORK} OUTPUT_VARIABLE text ERROR_VARIABLE text RESULT_VARIABLE code)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${CASE}: exit code ${code} of: ${ARGN}\n${text}")
  endif()
  set(output "${text}" PARENT_SCOPE)
endfunction()

# Holds the output of the example against what its session must give.
function(check_session output)
  foreach(line IN ITEMS "Stored with the identifier [^\n]+" "id = EC-100" "desc = Stronger bracket"
                        "initiator@person_identifier = jdoe")
    if(NOT output MATCHES "\n${line}\n")
      message(FATAL_ERROR "${CASE}: the session's output lacks the line '${line}':\n${output}")
    endif()
  endforeach()
endfunction()

function(test_Tree)
  file(REMOVE_RECURSE ${WORK})
  file(MAKE_DIRECTORY ${WORK})
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed)
  file(RENAME ${WORK}/installed ${tree})
endfunction()

function(test_CMakePackage)
  run(${CMAKE_COMMAND} -S ${EXAMPLE} -B ${WORK}/consumer -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
      -DCMAKE_PREFIX_PATH=${tree} -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
  run(${CMAKE_COMMAND} --build ${WORK}/consumer)
  run(${WORK}/consumer/first_session)
  check_session("${output}")
endfunction()

function(test_PkgConfig)
  run(PKG_CONFIG_LIBDIR=${tree}/${LIBDIR}/pkgconfig ${PKG_CONFIG} --cflags --libs velrzm qvlocal)
  separate_arguments(flags UNIX_COMMAND "${output}")
  run(${COMPILER} ${EXAMPLE}/first_session.cpp -o ${WORK}/first_session ${flags})
  run(LD_LIBRARY_PATH=${tree}/${LIBDIR} ${WORK}/first_session)
  check_session("${output}")
endfunction()

function(test_Tool)
  run(${tree}/${BINDIR}/velrzm --help)
  if(NOT output MATCHES "demo")
    message(FATAL_ERROR "${CASE}: the help of the installed tool does not name its commands:\n${output}")
  endif()
  foreach(file IN ITEMS man/man1/velrzm.1 man/man1/velrzm-item.1 bash-completion/completions/velrzm
                        zsh/site-functions/_velrzm)
    if(NOT EXISTS ${tree}/share/${file})
      message(FATAL_ERROR "${CASE}: share/${file} was not installed")
    endif()
  endforeach()
endfunction()

cmake_language(CALL test_${CASE})
