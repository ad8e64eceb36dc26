# cmake -D NAME=name -D PROGRAM=program -D VERSION=x.y.z -D EXPECTED=file -P shortExample.cmake
# The program prints what the file says, and refuses whatever it is given.

execute_process( COMMAND "${PROGRAM}" RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err )
file( READ "${EXPECTED}" expected )
if( NOT code EQUAL 0 OR NOT out STREQUAL expected OR NOT err STREQUAL "" )
    message( SEND_ERROR "${NAME}: code ${code}, printed\n${out}complained '${err}', expected\n${expected}" )
endif()

execute_process( COMMAND "${PROGRAM}" --version RESULT_VARIABLE code OUTPUT_VARIABLE out )
if( NOT code EQUAL 0 OR NOT out STREQUAL "${NAME} ${VERSION}\n" )
    message( SEND_ERROR "${NAME} --version: code ${code}, printed '${out}'" )
endif()

foreach( argument IN ITEMS extra --bogus -1 )
    execute_process( COMMAND "${PROGRAM}" ${argument} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err )
    if( NOT code EQUAL 2 OR NOT out STREQUAL "" OR NOT err MATCHES "^${NAME}: [^\n]+\n$" )
        message( SEND_ERROR "${NAME} ${argument}: code ${code}, printed '${out}', complained '${err}'" )
    endif()
endforeach()
