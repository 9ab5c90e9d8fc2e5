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
# it add their own sources with plotka_sources().
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

# plotka_add_storey(<storey> <target> [CIRCLE <folder>...]): the next storey of the house, above those before it, and what
# its sources are built into. A file includes its own storey and those below. CIRCLE names the folders that know one
# another; no others of a storey do. cmake/storeys.py reads these lines and guards what they say.
function(plotka_add_storey storey target)
    set_property(GLOBAL PROPERTY PLOTKA_STOREY_${storey} ${target})
endfunction()

# plotka_sources(<storey> [TARGET <target>] PRIVATE <file>... PUBLIC <header>...): the files of this folder that stand in
# the storey, every one of them. Public headers are installed.
function(plotka_sources storey)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TARGET" "PRIVATE;PUBLIC")
    get_property(target GLOBAL PROPERTY PLOTKA_STOREY_${storey})
    if(arg_TARGET)
        set(target ${arg_TARGET})
    endif()
    target_sources(${target} PRIVATE ${arg_PRIVATE})
    if(arg_PUBLIC)
        target_sources(${target} PUBLIC FILE_SET HEADERS FILES ${arg_PUBLIC})
    endif()
endfunction()
