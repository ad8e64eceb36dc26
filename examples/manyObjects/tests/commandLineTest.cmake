# cmake -D PROGRAM=program -D VERSION=x.y.z -D OUT=folder -P commandLineTest.cmake
# A small city: the program judges its answers itself, and its exit code tells. Then every wrong call has to end with code
# 2 and one line.

include( "${CMAKE_CURRENT_LIST_DIR}/../../support/commandLineTests.cmake" )

file( REMOVE_RECURSE "${OUT}" )
file( MAKE_DIRECTORY "${OUT}" )

# All boxes are asked about in every frame, and some are kept; the threads are more than the processor may have.
function( expect_sound )
    execute_process( COMMAND "${PROGRAM}" ${ARGN} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err )
    string( REGEX MATCHALL "[0-9.]+ +[0-9.]+ +[0-9.]+ +[0-9,]+ +[0-9.]+ % +0\n" rows "${out}" )
    list( LENGTH rows nbRows )
    if( NOT code EQUAL 0 OR NOT nbRows EQUAL 4 OR NOT out MATCHES "loses 0\n" OR NOT err STREQUAL "" )
        message( SEND_ERROR "manyObjects ${ARGN}: code ${code}, printed\n${out}complained '${err}'" )
    endif()
endfunction()

expect_sound( --count 20000 --frames 24 --threads 3 --out "${OUT}" )
expect_sound( --count 1 --frames 1 --threads 1 --seed 4294967295 --no-pictures )
file( GLOB pictures RELATIVE "${OUT}" "${OUT}/*" )
if( NOT pictures STREQUAL "manyObjects-deep.png;manyObjects-stereo.png;manyObjects-views.png" )
    message( SEND_ERROR "wrote '${pictures}'" )
endif()

expect_version( "${PROGRAM}" manyObjects "${VERSION}" )
foreach( arguments IN ITEMS extra --bogus --count "--count;0" "--count;-1" "--count;1e6" "--count;10000001" "--frames;0"
    "--threads;0" "--threads;257" "--seed;4294967296" "--seed;x" "--out;" "--out;${OUT}/missing" )
    expect_refusal( "${PROGRAM}" manyObjects ${arguments} )
endforeach()
