# Runs flex on INPUT into NAME.cpp and NAME.h; whatever flex has to say is an error.
execute_process(
  COMMAND ${FLEX} --outfile=${NAME}.cpp --header-file=${NAME}.h ${INPUT}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE messages
  ERROR_VARIABLE messages)
if(NOT result EQUAL 0 OR messages)
  file(REMOVE ${NAME}.cpp ${NAME}.h)
  message(FATAL_ERROR "${INPUT}: ${messages}")
endif()
