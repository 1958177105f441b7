#pragma once

#include <QStringList>

namespace Bench {

// Each registers its benchmarks with the library.

/// Parsing of generated sheets and of files.
void registerParsing(const QStringList& sheetFiles);
/// First styling of generated trees, and of tree files "tree-SHEET-NODES.txt" with the sheet beside them.
void registerStyling(const QStringList& treeFiles);
/// Restyling after one change of a class or pseudo-class.
void registerRestyling();
/// Restyling that switches a border, a font or a background between two values.
void registerCompound();
/// Bytes of rules and nodes, and allocations of a first styling.
void registerMemory();

} // namespace Bench
