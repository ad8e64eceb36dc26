# How every target of this project is built: one language level, one set of warnings, one floating-point rule.

# Clients write <zq/primitives/geFrustum.h> whether the library is installed, added as a subdirectory or fetched;
# in the build tree "zq" is a link to src/.
function( zq_link_headers )
    file( MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/include" )
    file( CREATE_LINK "${PROJECT_SOURCE_DIR}/src" "${PROJECT_BINARY_DIR}/include/zq" COPY_ON_ERROR SYMBOLIC )
endfunction()

# Floating point: each operation rounds once, in the order written. A multiplication and an addition are never
# contracted, so that compilers and instruction sets can give the same bits.
add_library( zq_reproducible INTERFACE )
add_library( Zq::reproducible ALIAS zq_reproducible )
set_target_properties( zq_reproducible PROPERTIES EXPORT_NAME reproducible )
target_compile_options( zq_reproducible INTERFACE
    $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-ffp-contract=off>
    $<$<CXX_COMPILER_ID:MSVC>:/fp:precise> )

function( zq_compile_rules target )
    target_compile_features( ${target} PUBLIC cxx_std_17 )
    set_target_properties( ${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON )
    # nobody asks for errno, and setting it makes a square root a jump or a call
    target_compile_options( ${target} PRIVATE
        $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-ffp-contract=off -fno-math-errno
            -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
            -Wold-style-cast -Wdouble-promotion -Wundef>
        $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
        # units that are read as one hide each other's names; the plain build keeps this warning
        $<$<AND:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>,$<CXX_COMPILER_ID:GNU,Clang,AppleClang>>:-Wno-shadow>
        $<$<AND:$<BOOL:${ZQ_WARNINGS_AS_ERRORS}>,$<CXX_COMPILER_ID:GNU,Clang,AppleClang>>:-Werror>
        $<$<CXX_COMPILER_ID:MSVC>:/W4 /fp:precise> )
    if( ZQ_SANITIZE )
        target_compile_options( ${target} PRIVATE
            -fsanitize=${ZQ_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer )
        target_link_options( ${target} PRIVATE -fsanitize=${ZQ_SANITIZE} )
        # GCC takes what it instruments for uninitialised, in <regex> for one; the plain build keeps this warning
        target_compile_options( ${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized> )
    endif()
endfunction()

# zq_add_library( <short name> DESCRIPTION ... FOLDERS ... LINK ... )
# The shared library libZQ<short name>, target Zq::<short name>, made of folders below src/. The path says what a file is:
#
#     src/<folder>/*.h            public, compiles alone
#     src/<folder>/*.inline       public, included by a header
#     src/<folder>/<room>/        internal, whatever it is: not installed
#     *.cpp, anywhere             a unit
#     *.imp, anywhere             included by units: not installed
function( zq_add_library name )
    cmake_parse_arguments( ARG "" "DESCRIPTION" "FOLDERS;LINK" ${ARGN} )
    set( target zq_${name} )
    set( sources )
    set( headers )
    set( fragments )
    foreach( folder IN LISTS ARG_FOLDERS )
        set( path "${PROJECT_SOURCE_DIR}/src/${folder}" )
        file( GLOB_RECURSE found CONFIGURE_DEPENDS "${path}/*.cpp" )
        list( APPEND sources ${found} )
        file( GLOB found RELATIVE "${PROJECT_SOURCE_DIR}/src" CONFIGURE_DEPENDS "${path}/*.h" )
        list( APPEND headers ${found} )
        file( GLOB found RELATIVE "${PROJECT_SOURCE_DIR}/src" CONFIGURE_DEPENDS "${path}/*.inline" )
        list( APPEND fragments ${found} )
    endforeach()
    list( TRANSFORM headers PREPEND "${PROJECT_BINARY_DIR}/include/zq/" )
    list( TRANSFORM fragments PREPEND "${PROJECT_BINARY_DIR}/include/zq/" )

    add_library( ${target} SHARED ${sources} )
    add_library( Zq::${name} ALIAS ${target} )
    zq_compile_rules( ${target} )
    # GCC warns of lambdas that hold what is a unit's own when that unit is included in another
    if( CMAKE_CXX_COMPILER_ID STREQUAL "GNU" )
        set_target_properties( ${target} PROPERTIES UNITY_BUILD OFF )
    endif()
    # each unit of kernels has the lanes of all levels for itself
    list( FILTER sources INCLUDE REGEX "/kernels/" )
    set_property( SOURCE ${sources} TARGET_DIRECTORY ${target} PROPERTY SKIP_UNITY_BUILD_INCLUSION ON )
    string( TOUPPER ${name} upper )
    target_compile_definitions( ${target} PRIVATE ZQ_${upper}_BUILDING )
    if( ARG_LINK )
        target_link_libraries( ${target} PUBLIC ${ARG_LINK} )
    endif()
    target_sources( ${target} PUBLIC
        FILE_SET HEADERS BASE_DIRS "${PROJECT_BINARY_DIR}/include" FILES ${headers} )
    if( fragments )
        target_sources( ${target} PUBLIC
            FILE_SET fragments TYPE HEADERS BASE_DIRS "${PROJECT_BINARY_DIR}/include" FILES ${fragments} )
    endif()
    set_target_properties( ${target} PROPERTIES
        OUTPUT_NAME ZQ${name}
        ZQ_DESCRIPTION "${ARG_DESCRIPTION}"
        EXPORT_NAME ${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        INSTALL_RPATH "$ORIGIN"
        VERIFY_INTERFACE_HEADER_SETS ${PROJECT_IS_TOP_LEVEL}
        INTERFACE_HEADER_SETS_TO_VERIFY HEADERS )
    # Load-time effects belong to one unit, packages.cpp; clang proves that no other has any.
    target_compile_options( ${target} PRIVATE $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wglobal-constructors> )
    set( exports "${PROJECT_SOURCE_DIR}/cmake/exports.map" )
    set( link_options "-Wl,--version-script=${exports}" )
    if( NOT ZQ_SANITIZE ) # clang leaves the run time's symbols to the program
        list( APPEND link_options -Wl,-z,defs )
    endif()
    target_link_options( ${target} PRIVATE "$<$<PLATFORM_ID:Linux>:${link_options}>" )
    set_target_properties( ${target} PROPERTIES LINK_DEPENDS "${exports}" )
    set_property( GLOBAL APPEND PROPERTY ZQ_LIBRARIES ${target} )
endfunction()
