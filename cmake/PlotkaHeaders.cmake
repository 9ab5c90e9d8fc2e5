# Target "headers": every installed header compiles on its own, as C++17 and as C++20, with the strictest of the
# text options that a Qt application may choose. Included once all libraries are known.

add_custom_target(headers)

# plotka_check_headers(<target>): one source per header of the target, that includes nothing else.
function(plotka_check_headers target)
    get_target_property(headers ${target} HEADER_SET)
    get_target_property(baseDirs ${target} HEADER_DIRS)
    set(sources "")
    foreach(header IN LISTS headers)
        foreach(base IN LISTS baseDirs)
            cmake_path(IS_PREFIX base ${header} NORMALIZE inside)
            if(inside)
                cmake_path(RELATIVE_PATH header BASE_DIRECTORY ${base} OUTPUT_VARIABLE name)
            endif()
        endforeach()
        set(source ${PROJECT_BINARY_DIR}/headers/${name}.cpp)
        file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${name}\"\n")
        list(APPEND sources ${source})
    endforeach()
    foreach(standard 17 20)
        set(check ${target}Headers${standard})
        add_library(${check} OBJECT EXCLUDE_FROM_ALL ${sources})
        target_link_libraries(${check} PRIVATE ${target})
        target_compile_definitions(${check} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
        target_compile_options(${check} PRIVATE -O0 -g0 -Wall -Wextra -Wpedantic -Werror)
        set_target_properties(${check} PROPERTIES
            CXX_STANDARD ${standard} CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF AUTOMOC OFF)
        add_dependencies(headers ${check})
    endforeach()
endfunction()

foreach(target PlotkaScene PlotkaCore PlotkaListing PlotkaInterchange)
    if(TARGET ${target})
        plotka_check_headers(${target})
    endif()
endforeach()
