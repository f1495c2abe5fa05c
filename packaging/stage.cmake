# Run by cpack before it packs: makes the installed files those of packages, and takes over the
# dependencies that stage.sh finds.
file(REMOVE_RECURSE ${CPACK_ORU_CONTROL})
file(MAKE_DIRECTORY ${CPACK_ORU_CONTROL})
execute_process(COMMAND ${CPACK_ORU_FOLDER}/changelog.sh ${CPACK_ORU_FOLDER}/../CHANGELOG.md
    ${CPACK_DEBIAN_PACKAGE_RELEASE} ${CPACK_PACKAGE_CONTACT} ${CPACK_ORU_DATE}
    OUTPUT_FILE ${CPACK_ORU_CONTROL}/changelog COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CPACK_ORU_FOLDER}/stage.sh ${CPACK_TEMPORARY_DIRECTORY} ${CPACK_ORU_CONTROL}
    ${CPACK_PACKAGE_VERSION} COMMAND_ERROR_IS_FATAL ANY)
foreach(package IN LISTS CPACK_COMPONENTS_ALL)
    if(EXISTS ${CPACK_ORU_CONTROL}/${package}/depends)
        file(STRINGS ${CPACK_ORU_CONTROL}/${package}/depends depends)
        string(TOUPPER ${package} upper)
        list(APPEND depends ${CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS})
        list(JOIN depends ", " CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS)
    endif()
endforeach()
