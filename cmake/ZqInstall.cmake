# What lands where: libraries in lib, headers and fragments in include/zq, the CMake package in lib/cmake/ZQprimitives
# and one pkg-config file per library in lib/pkgconfig. No file holds the prefix: an install tree may be moved.

include( CMakePackageConfigHelpers )

set( package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ZQprimitives" )

get_property( libraries GLOBAL PROPERTY ZQ_LIBRARIES )
foreach( library IN LISTS libraries )
    set( fragments "" )
    get_target_property( sets ${library} HEADER_SETS )
    if( "fragments" IN_LIST sets )
        set( fragments FILE_SET fragments DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development )
    endif()
    install( TARGETS ${library} EXPORT ZQprimitivesTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
        FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
        ${fragments} )
endforeach()
install( TARGETS zq_reproducible EXPORT ZQprimitivesTargets )

# find_package( ZQprimitives ). Before 1.0 a minor version may change the interface, as the soname says.
install( EXPORT ZQprimitivesTargets NAMESPACE Zq:: DESTINATION "${package_dir}" COMPONENT development )
configure_package_config_file( "${CMAKE_CURRENT_LIST_DIR}/ZQprimitivesConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/package/ZQprimitivesConfig.cmake"
    INSTALL_DESTINATION "${package_dir}"
    NO_SET_AND_CHECK_MACRO )
write_basic_package_version_file( "${PROJECT_BINARY_DIR}/package/ZQprimitivesConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion )
install( FILES
    "${PROJECT_BINARY_DIR}/package/ZQprimitivesConfig.cmake"
    "${PROJECT_BINARY_DIR}/package/ZQprimitivesConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT development )

# pkg-config ZQprimitives. The way from the file to the prefix, and back down, is relative.
if( IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}" )
    message( STATUS "ZQprimitives: absolute install folders, the install tree cannot be moved" )
endif()
cmake_path( ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY "/prefix" OUTPUT_VARIABLE libdir )
file( RELATIVE_PATH pc_to_prefix "${libdir}/pkgconfig" "/prefix" )
string( REGEX REPLACE "/$" "" pc_to_prefix "${pc_to_prefix}" )
set( pc_prefix "\${pcfiledir}/${pc_to_prefix}" )
set( pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}" )
set( pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}" )
if( IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" )
    set( pc_prefix "${CMAKE_INSTALL_PREFIX}" )
    set( pc_libdir "${CMAKE_INSTALL_LIBDIR}" )
endif()
if( IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}" )
    set( pc_includedir "${CMAKE_INSTALL_INCLUDEDIR}" )
endif()
foreach( library IN LISTS libraries )
    get_target_property( pc_name ${library} OUTPUT_NAME )
    get_target_property( pc_description ${library} ZQ_DESCRIPTION )
    get_target_property( needed ${library} INTERFACE_LINK_LIBRARIES )
    set( pc_requires "" )
    foreach( other IN LISTS needed )
        if( TARGET ${other} )
            get_target_property( other ${other} OUTPUT_NAME )
            string( APPEND pc_requires " ${other} = ${PROJECT_VERSION}" )
        endif()
    endforeach()
    configure_file( "${CMAKE_CURRENT_LIST_DIR}/library.pc.in" "${PROJECT_BINARY_DIR}/package/${pc_name}.pc" @ONLY )
    install( FILES "${PROJECT_BINARY_DIR}/package/${pc_name}.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development )
endforeach()
