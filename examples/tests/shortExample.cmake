# cmake -D NAME=name -D PROGRAM=program -D VERSION=x.y.z -D EXPECTED=file -P shortExample.cmake
# The program prints what the file says, and refuses whatever it is given.

include( "${CMAKE_CURRENT_LIST_DIR}/../support/commandLineTests.cmake" )

execute_process( COMMAND "${PROGRAM}" RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err )
file( READ "${EXPECTED}" expected )
if( NOT code EQUAL 0 OR NOT out STREQUAL expected OR NOT err STREQUAL "" )
    message( SEND_ERROR "${NAME}: code ${code}, printed\n${out}complained '${err}', expected\n${expected}" )
endif()

expect_version( "${PROGRAM}" "${NAME}" "${VERSION}" )
foreach( argument IN ITEMS extra --bogus -1 )
    expect_refusal( "${PROGRAM}" "${NAME}" ${argument} )
endforeach()
