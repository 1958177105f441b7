#pragma once

#include "Brisko/StyleSheet.h"

#include <string>

namespace Testing {

/// A value on one line: `1` an integer, `1.0` a plain float, `2px`, `50%`, `"text"`, `word`, `rgba_pma(r g b a)`,
/// `calc(3)` or, where it depends on parameter 0, `calc(-10 at 0, -9.5 at 1)`; separators as " ", ", " and " / ".
std::string dumpValue(const Ondex::StyleValue& value);

/// A selector as `a.b > c:d#e f`, read from the fields of its compounds; an empty compound is `*`.
std::string dumpSelector(const Brisko::Selector& selector);

/// The rules of a sheet as `a > b {x: 1px; y: 2 !important} c {z: 3}`.
std::string dumpSheet(const Brisko::StyleSheet& sheet);

/// Like dumpSheet(), with the source and the number after each declaration: `a {x: 1px @main.css:3 #0}`.
std::string dumpSheetWithSources(const Brisko::StyleSheet& sheet);

} // namespace Testing
