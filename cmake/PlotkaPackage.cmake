# What makes an install usable by others: find_package(Plotka) and pkg-config's plotka. Included last, when all
# libraries are known.

set(PLOTKA_QT_COMPONENTS Core Gui Xml Core5Compat)
set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/Plotka)
install(EXPORT PlotkaTargets NAMESPACE Plotka:: DESTINATION ${packageDir})
configure_package_config_file(cmake/PlotkaConfig.cmake.in ${PROJECT_BINARY_DIR}/PlotkaConfig.cmake
    INSTALL_DESTINATION ${packageDir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PlotkaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PlotkaConfig.cmake ${PROJECT_BINARY_DIR}/PlotkaConfigVersion.cmake
    DESTINATION ${packageDir})

# The file finds its own prefix, so an install may be moved or staged.
set(pcDir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH PLOTKA_PC_TO_PREFIX /${pcDir} /)
string(REGEX REPLACE "/$" "" PLOTKA_PC_TO_PREFIX "${PLOTKA_PC_TO_PREFIX}")
list(TRANSFORM PLOTKA_QT_COMPONENTS PREPEND Qt6 OUTPUT_VARIABLE PLOTKA_PC_REQUIRES)
list(JOIN PLOTKA_PC_REQUIRES " " PLOTKA_PC_REQUIRES)
set(PLOTKA_PC_LIBS "")
foreach(target PlotkaInterchange PlotkaListing PlotkaCore PlotkaScene)
    if(TARGET ${target})
        string(APPEND PLOTKA_PC_LIBS " -l${target}")
    endif()
endforeach()
string(STRIP "${PLOTKA_PC_LIBS}" PLOTKA_PC_LIBS)
configure_file(cmake/plotka.pc.in ${PROJECT_BINARY_DIR}/plotka.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/plotka.pc DESTINATION ${pcDir})

# The licence and the documents, in folders as they are in the repository, so that links among them lead somewhere.
install(FILES LICENSE README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} PATTERN CMakeLists.txt EXCLUDE)
