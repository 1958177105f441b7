# Scanner and grammar: generated into the build directory, warnings of both generators as errors.

set(brisko_parser_dir ${CMAKE_CURRENT_LIST_DIR})
set(brisko_generated_dir ${CMAKE_CURRENT_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${brisko_generated_dir})

# A parser made from a grammar file; the header holds its entry point.
function(brisko_bison name grammar output_dir)
  add_custom_command(
    OUTPUT ${output_dir}/${name}.cpp ${output_dir}/${name}.h
    COMMAND ${BISON_EXECUTABLE} -Wall -Werror --header=${name}.h --output=${name}.cpp ${grammar}
    WORKING_DIRECTORY ${output_dir}
    DEPENDS ${grammar}
    COMMENT "Generating ${name}"
    VERBATIM)
endfunction()

add_custom_command(
  OUTPUT ${brisko_generated_dir}/Scanner.cpp ${brisko_generated_dir}/Scanner.h
  COMMAND ${CMAKE_COMMAND} -D FLEX=${FLEX_EXECUTABLE} -D INPUT=${brisko_parser_dir}/Scanner.l -D NAME=Scanner -P
          ${brisko_parser_dir}/RunFlex.cmake
  WORKING_DIRECTORY ${brisko_generated_dir}
  DEPENDS ${brisko_parser_dir}/Scanner.l ${brisko_parser_dir}/RunFlex.cmake
  COMMENT "Generating Scanner"
  VERBATIM)
# Errors are thrown, so that the function of flex that ends the process is left over.
set_source_files_properties(${brisko_generated_dir}/Scanner.cpp PROPERTIES COMPILE_OPTIONS -Wno-unused-function)
brisko_bison(Grammar ${brisko_parser_dir}/Grammar.y ${brisko_generated_dir})

target_sources(Brisko PRIVATE ${brisko_generated_dir}/Scanner.cpp ${brisko_generated_dir}/Scanner.h
                              ${brisko_generated_dir}/Grammar.cpp ${brisko_generated_dir}/Grammar.h)
target_include_directories(Brisko PRIVATE ${brisko_generated_dir})
