# Lays the sample dealer's working folder:
#   cmake -DTOOL=<norvale-tool> -DSAMPLES=<samples/> -DFOLDER=<where> [-DFRESH=ON] -P cmake/LaySamples.cmake
# A folder that is there already keeps what it holds: the samples are put into it once more. With FRESH it is removed
# first.
cmake_minimum_required(VERSION 3.25)

foreach(name TOOL SAMPLES FOLDER)
  if(NOT DEFINED ${name} OR "${${name}}" STREQUAL "")
    message(FATAL_ERROR "-D${name}=... is missing")
  endif()
endforeach()

function(run_tool)
  execute_process(COMMAND "${TOOL}" ${ARGN} RESULT_VARIABLE result ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "norvale-tool ${ARGN}: ${result}\n${errors}")
  endif()
endfunction()

if(FRESH)
  file(REMOVE_RECURSE "${FOLDER}")
endif()
file(GLOB held "${FOLDER}/*")
if(NOT held)
  run_tool(new-folder "${FOLDER}")
endif()

file(GLOB plans "${SAMPLES}/plan-*.json")
list(SORT plans)
foreach(table "${SAMPLES}/customers.json" "${SAMPLES}/waste-factors.json" "${SAMPLES}/prices.json" ${plans})
  run_tool(--folder "${FOLDER}" import "${table}")
endforeach()
