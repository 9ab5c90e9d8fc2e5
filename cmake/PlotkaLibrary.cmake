include(GenerateExportHeader)

# What every target of ours is compiled with; nothing of it reaches those who link us.
function(plotka_compile_as_ours target)
    target_compile_features(${target} PRIVATE cxx_std_20)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${PLOTKA_WERROR}>:-Werror>)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# plotka_add_library(<target> <export name> <macro prefix>): a shared library with hidden
# visibility, a generated export header and headers as an installed file set. The folders below
# it add their own sources with target_sources().
function(plotka_add_library target exportName macroPrefix)
    string(TOLOWER ${macroPrefix} lower)
    add_library(${target} SHARED)
    add_library(Plotka::${exportName} ALIAS ${target})
    plotka_compile_as_ours(${target})
    target_compile_features(${target} INTERFACE cxx_std_17)
    set(exportHeader ${PROJECT_BINARY_DIR}/generated/${lower}_export.h)
    generate_export_header(${target} BASE_NAME ${macroPrefix} EXPORT_FILE_NAME ${exportHeader})
    target_sources(${target} PUBLIC FILE_SET HEADERS
        BASE_DIRS ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/generated
        FILES ${exportHeader})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${exportName}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    install(TARGETS ${target} EXPORT PlotkaTargets
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/plotka)
endfunction()
