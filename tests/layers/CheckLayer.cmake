# Compiles two one-line files with a layer's include path only: one includes
# a header the layer may use and must compile, the other includes a header of
# a higher layer and must fail because the header is not found.
#   cmake -DCOMPILER=... -DINCLUDES=a|b|c -DALLOWED=x.h -DFORBIDDEN=y.h -DWORK=dir -P
string(REPLACE "|" ";" dirs "${INCLUDES}")
set(flags)
foreach(dir IN LISTS dirs)
    list(APPEND flags "-I${dir}")
endforeach()
file(MAKE_DIRECTORY ${WORK})

function(probe header out_result out_text)
    string(MAKE_C_IDENTIFIER ${header} stem)
    set(source ${WORK}/${stem}.cpp)
    file(WRITE ${source} "#include \"${header}\"\n")
    execute_process(COMMAND ${COMPILER} -std=c++17 -fsyntax-only ${flags} ${source}
                    RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
    set(${out_result} ${result} PARENT_SCOPE)
    set(${out_text} "${text}" PARENT_SCOPE)
endfunction()

probe(${ALLOWED} result text)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ALLOWED} should compile in this layer:\n${text}")
endif()
probe(${FORBIDDEN} result text)
if(result EQUAL 0)
    message(FATAL_ERROR "${FORBIDDEN} is above this layer but compiled")
endif()
if(NOT text MATCHES "No such file|file not found")
    message(FATAL_ERROR "${FORBIDDEN} failed for another reason than not being visible:\n${text}")
endif()
message(STATUS "${FORBIDDEN} is out of reach, ${ALLOWED} is not")
