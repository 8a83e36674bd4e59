# Installs the library of a build tree into a folder of its own, builds tests/consumer against it and runs that.
function(run)
  execute_process(COMMAND ${ARGV} OUTPUT_VARIABLE printed ERROR_VARIABLE printed RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\nended with ${status}:\n${printed}")
  endif()
  set(printed "${printed}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${folder})
run(${CMAKE_COMMAND} --install ${built} --component library --prefix ${folder}/installed)
file(GLOB_RECURSE internals ${folder}/installed/*_internal.h)
if(internals)
  message(FATAL_ERROR "Installed, though they are the library's own:\n${internals}")
endif()

run(${CMAKE_COMMAND} -G ${generator} -S ${source} -B ${folder}/build -D CMAKE_PREFIX_PATH=${folder}/installed
    -D CMAKE_CXX_COMPILER=${compiler} -D CMAKE_CXX_FLAGS=${flags} -D CMAKE_BUILD_TYPE=${type})
run(${CMAKE_COMMAND} --build ${folder}/build)
run(${folder}/build/consumer ${folder}/plan.prx)
if(NOT printed MATCHES "The installed library works")
  message(FATAL_ERROR "The consumer printed:\n${printed}")
endif()
