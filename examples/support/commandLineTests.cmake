# What the tests of all programs ask of a command line; included by scripts that run them with cmake -P.

# --version prints name and version.
function( expect_version program name version )
    execute_process( COMMAND "${program}" --version RESULT_VARIABLE code OUTPUT_VARIABLE out )
    if( NOT code EQUAL 0 OR NOT out STREQUAL "${name} ${version}\n" )
        message( SEND_ERROR "${name} --version: code ${code}, printed '${out}'" )
    endif()
endfunction()

# A wrong call ends with code 2 and one line on stderr.
function( expect_refusal program name )
    execute_process( COMMAND "${program}" ${ARGN} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err )
    if( NOT code EQUAL 2 OR NOT out STREQUAL "" OR NOT err MATCHES "^${name}: [^\n]+\n$" )
        message( SEND_ERROR "${name} ${ARGN}: code ${code}, printed '${out}', complained '${err}'" )
    endif()
endfunction()
