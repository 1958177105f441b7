// The grammar with its lists as right recursion, the form in which they are easiest to check by eye. It needs stack for
// every rule set and declaration, so the library has left recursion instead; the test compares both. Everything but the
// lists is the library's Grammar.y.

%require "3.8"
%define api.pure full
%define api.prefix {literal}
%define api.value.type {Brisko::SemanticValue}
%define parse.error verbose
%define parse.lac none
%define lr.type lalr
%define lr.default-reduction most
%expect 0
%param {Brisko::ParserDriver& driver}

%code requires {
#include "parser/SemanticValue.h"
#define LITERALSTYPE_IS_TRIVIAL 1
namespace Brisko {
class ParserDriver;
}
}

%code {
#include "parser/ParserDriver.h"

#define YYINITDEPTH 200
#define YYMAXDEPTH 10000

using Ondex::Attribute;
using Ondex::SimpleExpression;
using Ondex::StyleValue;
using Brisko::Selector;
using Brisko::SimpleSelector;

static int yylex(YYSTYPE* value, Brisko::ParserDriver& driver) {
    return driver.lex(value);
}

static void yyerror(Brisko::ParserDriver& driver, const char* message) {
    driver.error(message);
}
}

// The order decides the numbers, and with them the order in which messages list what was expected.
%token AT_RULE 258
%token BAD_STRING 259
%token <number> PERCENTAGE 260
%token <number> EMS 261
%token <number> EXS 262
%token <number> PXS 263
%token <number> INCHES 264
%token <number> REAL 265
%token <number> ANGLE 266
%token <integer> INTEGER 267
%token <text> HASH 268
%token <text> IDENT 269
%token <text> STRING 270
%token <text> URI_STR 271
%token <text> URI 272
%token <text> FUNCTION 273
%token WHITESPACE 274
%token CDO 275
%token CDC 276
%token INCLUDES 277
%token DASHMATCH 278
%token MEDIA_SYM 279
%token IMPORT_SYM 280
%token PAGE_SYM 281
%token CHARSET_SYM 282
%token IMPORTANT_SYM 283
%token COMMA 284
%token CALC 285
%token CSS_PARSER 286
%token SELECTOR_PARSER 287
%token EXPR_PARSER 288
%token ';' '@' '{' '}' ':' '+' '>' '*' '.' '[' ']' '=' ')' '(' '"' '\'' '/' '-'

%type <flag> media_list medium prio
%type <text> pseudo_page property attrib_cmp pseudo pseudo_param hexcolor
%type <selector> selector
%type <compound> simple_selector selector_types selector_type
%type <value> expr term function
%type <expression> calc sum product unit
%type <number> numeric number

%destructor { driver.release($$); } <selector> <compound> <value> <expression>

%start parser_type

%%

parser_type
    : CSS_PARSER header
    | SELECTOR_PARSER selectors
    | EXPR_PARSER expr                          { driver.setExpr($2); }
    ;

header
    : CHARSET_SYM STRING ';' ws stylesheet      { driver.checkCharset($2); }
    | ws stylesheet
    ;

ws
    : %empty
    | WHITESPACE
    ;

// Style sheet

stylesheet
    : %empty
    | CDO ws stylesheet
    | CDC ws stylesheet
    | import ws stylesheet
    | ruleset                                   { driver.commit(); }
      stylesheet
    | media stylesheet
    | page stylesheet
    | error                                     { driver.closeBrokenRule(); }
      stylesheet
    | '@' IDENT                                 { driver.ignoreRule($2); }
    ;

import
    : IMPORT_SYM ws STRING ws ';'               { driver.importString($3, true); }
    | IMPORT_SYM ws STRING ws media_list ';'    { driver.importString($3, $5); }
    | IMPORT_SYM ws URI ws ';'                  { driver.importURI($3, true); }
    | IMPORT_SYM ws URI ws media_list ';'       { driver.importURI($3, $5); }
    ;

media
    : MEDIA_SYM ws media_list '{' ws rulesets '}' ws    { driver.closeMedia($3); }
    | MEDIA_SYM ws media_list '{' error ws              { driver.closeBrokenMedia($3); }
    ;

rulesets
    : %empty
    | ruleset rulesets
    ;

media_list
    : medium
    | media_list COMMA ws medium                { $$ = $1 || $4; }
    ;

medium
    : IDENT ws                                  { $$ = driver.matchesMedium($1); }
    ;

page
    : PAGE_SYM ws pseudo_page '{' ws            { driver.ignorePage(); }
      declarations '}' ws
    ;

pseudo_page
    : %empty                                    { $$ = {}; }
    | ':' IDENT ws                              { $$ = $2; }
    ;

property
    : IDENT ws
    ;

ruleset
    : selectors '{' ws declarations '}' ws      { driver.parseRule(); }
    ;

declarations
    : %empty
    | declaration
    | declaration ';' ws declarations
    | error ';' ws declarations
    ;

// Selectors

selectors
    : selector                                  { driver.add($1); }
    | selectors COMMA ws selector               { driver.add($4); }
    ;

selector
    : simple_selector ws                        { $$ = driver.chain($1, SimpleSelector::None, driver.selector()); }
    | simple_selector ws '+' ws selector        { $$ = driver.dropSibling($1, $5); }
    | simple_selector ws '>' ws selector        { $$ = driver.chain($1, SimpleSelector::Child, $5); }
    | simple_selector WHITESPACE selector       { $$ = driver.chain($1, SimpleSelector::Descendant, $3); }
    ;

simple_selector
    : IDENT                                     { $$ = driver.withType(driver.compound(), $1); }
    | '*'                                       { $$ = driver.compound(); }
    | IDENT selector_types                      { $$ = driver.withType($2, $1); }
    | '*' selector_types                        { $$ = $2; }
    | selector_types
    ;

selector_types
    : selector_type
    | selector_types HASH                       { $$ = driver.withId($1, $2); }
    | selector_types '.' IDENT                  { $$ = driver.withClass($1, $3); }
    | selector_types attrib
    | selector_types pseudo                     { $$ = driver.withPseudoClass($1, $2); }
    ;

selector_type
    : HASH                                      { $$ = driver.withId(driver.compound(), $1); }
    | '.' IDENT                                 { $$ = driver.withClass(driver.compound(), $2); }
    | attrib                                    { $$ = driver.compound(); }
    | pseudo                                    { $$ = driver.withPseudoClass(driver.compound(), $1); }
    ;

attrib
    : '[' ws IDENT ws attrib_param ']'          { driver.ignoreAttribute(); }
    ;

attrib_param
    : %empty
    | '=' ws attrib_cmp ws
    | INCLUDES ws attrib_cmp ws
    | DASHMATCH ws attrib_cmp ws
    ;

attrib_cmp
    : IDENT
    | STRING
    ;

pseudo
    : ':' IDENT                                 { $$ = $2; }
    | ':' FUNCTION ws pseudo_param ')'          { $$ = driver.ignoreParameter($2); }
    ;

pseudo_param
    : %empty                                    { $$ = {}; }
    | IDENT ws
    ;

// Declarations

declaration
    : property ':' ws                           { driver.setExprError(false); }
      expr prio                                 { driver.declare($1, $5, $6); }
    | property error ws
    | property '{' ws error '}' ws
    | property '[' ws error ']' ws
    | property '(' ws error ')' ws
    | property '"' ws error '"' ws
    | property '\'' ws error '\'' ws
    ;

prio
    : %empty                                    { $$ = false; }
    | IMPORTANT_SYM ws                          { $$ = true; }
    ;

// Values

expr
    : term
    | expr term                                 { $$ = driver.append($1, StyleValue::SEPARATOR_WHITE_SPACE, $2); }
    | expr '/' ws term                          { $$ = driver.append($1, StyleValue::SEPARATOR_SLASH, $4); }
    | expr COMMA ws term                        { $$ = driver.append($1, StyleValue::SEPARATOR_COMMA, $4); }
    ;

term
    : INTEGER ws                                { $$ = driver.value(int($1)); }
    | REAL ws                                   { $$ = driver.value(float($1), Attribute::VU_UNKNOWN); }
    | PERCENTAGE ws                             { $$ = driver.value(float($1), Attribute::VU_PERCENTAGE); }
    | PXS ws                                    { $$ = driver.value(float($1), Attribute::VU_PXS); }
    | EMS ws                                    { $$ = driver.value(float($1), Attribute::VU_EMS); }
    | EXS ws                                    { $$ = driver.value(float($1), Attribute::VU_EXS); }
    | STRING ws                                 { $$ = driver.textValue($1); }
    | URI ws                                    { $$ = driver.textValue($1); }
    | IDENT ws                                  { $$ = driver.keywordValue($1); }
    | calc ws                                   { $$ = driver.calcValue($1); }
    | hexcolor                                  { $$ = driver.colorValue($1); }
    | function
    ;

function
    : FUNCTION ws expr ')' ws                   { $$ = driver.call($1, $3); }
    ;

hexcolor
    : HASH ws
    ;

// Calculations

calc
    : CALC ws sum ')'                           { $$ = $3; }
    ;

sum
    : product
    | sum '+' ws product                        { $$ = driver.combine($1, SimpleExpression::TAG_ADD, $4); }
    | sum '-' ws product                        { $$ = driver.combine($1, SimpleExpression::TAG_SUB, $4); }
    ;

product
    : unit ws
    | product '*' ws unit ws                    { $$ = driver.combine($1, SimpleExpression::TAG_MUL, $4); }
    | product '/' ws number ws                  { ($$ = $1)->replace(SimpleExpression::TAG_DIV, float($4)); }
    ;

unit
    : numeric                                   { $$ = new SimpleExpression(float($1)); }
    | PERCENTAGE                                { $$ = driver.fractionOfReference(float($1)); }
    | '(' ws sum ')'                            { $$ = $3; }
    | calc
    ;

numeric
    : number
    | PXS
    | EMS
    | EXS
    ;

number
    : INTEGER                                   { $$ = double(float($1)); }
    | REAL
    ;
