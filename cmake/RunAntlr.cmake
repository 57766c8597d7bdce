# cmake -DTOOL= -DGRAMMAR= -DFOLDER= -P RunAntlr.cmake
# Generates lexer and parser of a grammar into a folder. The tool warns of its own templates for C
# and still writes what is right, so what it says is shown only when it fails.
get_filename_component(grammar_folder "${GRAMMAR}" DIRECTORY)
execute_process(
  COMMAND "${TOOL}" -lib "${grammar_folder}" -o "${FOLDER}" "${GRAMMAR}"
  RESULT_VARIABLE failed OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(failed)
  message(FATAL_ERROR "${TOOL} cannot use ${GRAMMAR}:\n${said}")
endif()
