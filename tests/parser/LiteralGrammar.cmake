# A second form of the grammar, for the tests of the parser to compare with.
set(literal_grammar_dir ${CMAKE_CURRENT_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${literal_grammar_dir})
brisko_bison(LiteralGrammar ${CMAKE_CURRENT_LIST_DIR}/LiteralGrammar.y ${literal_grammar_dir})
target_sources(parser_test PRIVATE ${literal_grammar_dir}/LiteralGrammar.cpp ${literal_grammar_dir}/LiteralGrammar.h)
target_include_directories(parser_test PRIVATE ${literal_grammar_dir})
