# Compiles id-based translation files to what the host reads at run time.

find_program(lrelease NAMES lrelease lrelease-qt5 HINTS /usr/lib/qt5/bin REQUIRED)

# quel_add_translations(NAME): every NAME/NAME_<language>.ts of the calling folder becomes
# share/quelhost/resources/NAME/NAME_<language>.qm.
function(quel_add_translations name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/${name}_*.ts)
    set(targetDir ${QUEL_SHARE_DIR}/resources/${name})
    file(MAKE_DIRECTORY ${targetDir})
    set(outputs)
    foreach(source IN LISTS sources)
        cmake_path(GET source STEM stem)
        set(output ${targetDir}/${stem}.qm)
        add_custom_command(OUTPUT ${output}
            COMMAND ${lrelease} -silent -idbased ${source} -qm ${output}
            DEPENDS ${source}
            COMMENT "Translating ${stem}"
            VERBATIM)
        list(APPEND outputs ${output})
    endforeach()
    add_custom_target(${name}_translations ALL DEPENDS ${outputs})
    install(FILES ${outputs} DESTINATION ${CMAKE_INSTALL_DATADIR}/quelhost/resources/${name})
endfunction()
