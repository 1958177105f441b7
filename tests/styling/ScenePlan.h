#pragma once

#include "Ondex/StyleValue.h"

#include <QByteArray>

#include <string>
#include <vector>

namespace Testing {

/// What an attribute of a journal scene takes, by its name. The real attributes and the plain ones follow it both.
struct AttributePlan {
    bool takesNumbers;                 ///< one number, through the typed setters
    bool takesValues;                  ///< everything, through the generic setter
    std::vector<QByteArray> longhands; ///< of a shorthand, which takes as many numbers as it has longhands in the end

    static AttributePlan of(const QByteArray& name);
};

/// The attributes that every node has from the start, the shorthands among them with their longhands.
const std::vector<QByteArray>& firstAttributes();
/// Those of a class that the library knows to take every value whole, which every node has from the start as well.
const std::vector<QByteArray>& wholeAttributes();
/// Those that a node gets when a declaration asks for them.
const std::vector<QByteArray>& lazyAttributes();
/// All names that declarations of random sheets set, those that nobody serves included.
const std::vector<QByteArray>& declaredProperties();
/// How many numbers a property takes.
int numberCount(const QByteArray& property);

/// The parts of @p value for the longhands of a shorthand; none where it does not take the value.
std::vector<Ondex::StyleValue> partsFor(const AttributePlan& plan, const Ondex::StyleValue& value);

/// What happens in a scene, line by line. The texts are made here for both sides of a comparison.
class Journal {
public:
    void note(const QByteArray& node, const std::string& what);
    void noteValue(const QByteArray& node, const std::string& what, const QByteArray& attribute,
                   const Ondex::StyleValue& value, int layer = -1);
    void message(const std::string& text) { m_lines.push_back("message: " + text); }

    /// The lines so far, which are dropped.
    std::vector<std::string> take() { return std::exchange(m_lines, {}); }

private:
    std::vector<std::string> m_lines;
};

} // namespace Testing
