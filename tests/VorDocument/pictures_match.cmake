# Draws the pictures anew and holds them against those of the documentation.
# MOVES: the program; DOCUMENTS, PICTURES: folders of the sources; OUTPUT: a scratch folder.
file(REMOVE_RECURSE "${OUTPUT}")
execute_process(COMMAND "${MOVES}" "${OUTPUT}" "${DOCUMENTS}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "a piece did not obey")
endif()
file(GLOB drawn RELATIVE "${OUTPUT}" "${OUTPUT}/*.svg")
file(GLOB kept RELATIVE "${PICTURES}" "${PICTURES}/*.svg")
if(NOT drawn STREQUAL kept OR drawn STREQUAL "")
    message(FATAL_ERROR "drawn: ${drawn}; kept: ${kept}")
endif()
foreach(picture IN LISTS drawn)
    execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${OUTPUT}/${picture}" "${PICTURES}/${picture}"
                    RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${picture} is not what the program draws: moves docs/pictures documents")
    endif()
endforeach()
