#pragma once

#include "Ondex/StyleValue.h"

#include <QSharedData>

#include <vector>

namespace Ondex {

/// The components of a value that has two or more, shared by its copies.
struct StyleValue::List : QSharedData {
    std::vector<Component> components;
};

} // namespace Ondex
