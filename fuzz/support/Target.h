#pragma once

#include <QByteArray>

namespace Fuzz {

/// Checks what a target asserts for one input; every target defines this function. An expectation of googletest that
/// fails is a finding, as is whatever the sanitizers stop.
void checkInput(const QByteArray& bytes);

} // namespace Fuzz
