include(GenerateExportHeader)

# What every target of ours is compiled with; nothing of it reaches those who link us.
function(plotka_compile_as_ours target)
    target_compile_features(${target} PRIVATE cxx_std_20)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${PLOTKA_WERROR}>:-Werror>
        # or ccache cannot look into precompiled headers
        $<$<AND:$<BOOL:${PLOTKA_PCH}>,$<CXX_COMPILER_ID:GNU>>:-fpch-preprocess>)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# The Qt headers that nearly every source of ours reads, compiled once for a target. A source still includes what it uses:
# the presets dev and fuzz build without.
function(plotka_precompile target)
    if(PLOTKA_PCH)
        target_precompile_headers(${target} PRIVATE
            <QHash> <QObject> <QString> <QStringList> <algorithm> <functional> <memory> <set> <utility> <vector> ${ARGN})
    endif()
endfunction()

# plotka_add_library(<target> <export name> <macro prefix>): a shared library with hidden
# visibility, a generated export header and headers as an installed file set. The folders below
# it add their own sources with target_sources().
function(plotka_add_library target exportName macroPrefix)
    string(TOLOWER ${macroPrefix} lower)
    add_library(${target} SHARED)
    add_library(Plotka::${exportName} ALIAS ${target})
    plotka_compile_as_ours(${target})
    plotka_precompile(${target})
    target_compile_features(${target} INTERFACE cxx_std_17)
    set(exportHeader ${PROJECT_BINARY_DIR}/generated/${lower}_export.h)
    generate_export_header(${target} BASE_NAME ${macroPrefix} EXPORT_FILE_NAME ${exportHeader})
    # Calls within a library stay within it and need no detour. Classes and constants are still shared.
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
    target_link_options(${target} PRIVATE LINKER:-Bsymbolic-functions)
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
