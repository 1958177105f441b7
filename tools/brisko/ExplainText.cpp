#include "ExplainText.h"

#include "AttributeValues.h"
#include "ExplainJson.h"
#include "Gorvel/StringUtils.h"
#include "SceneText.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace Command {

using Brisko::Explanation;
using Brisko::Mismatch;
using Gorvel::StringUtils;
using Ondex::Attribute;
using Candidate = Explanation::Candidate;
using Outcome = Explanation::Outcome;

namespace {

constexpr int widestColumn = 40; ///< what is longer moves the rest of its line only

QByteArray printable(const QString& text) {
    return StringUtils::printable(text.toUtf8());
}

/// Why a declaration does not hold, beside the one that is stronger than all.
const char* reasonOf(const Candidate& candidate, const Candidate& strongest) {
    switch (candidate.outcome) {
    case Outcome::Wins:
        return "wins";
    case Outcome::LostByImportance:
        return "lost: not important";
    case Outcome::LostBySpecificity:
        return candidate.origin() < strongest.origin() ? "lost: of a lower origin" : "lost: less specific";
    case Outcome::LostByOrder:
        return "lost: declared earlier";
    case Outcome::Refused:
        return "refused: the property does not take this value";
    case Outcome::OverriddenByProgram:
        return "overridden: the scene sets the property";
    case Outcome::OverriddenByTransition:
        return "overridden: a transition runs";
    default:
        return "not served: the node has no such property";
    }
}

QByteArray specificityText(const Candidate& candidate) {
    QByteArray text;
    for (const int count : {candidate.idCount(), candidate.classCount(), candidate.typeCount()})
        text += (text.isEmpty() ? "" : ",") + QByteArray::number(count);
    return text;
}

QByteArray valueText(const Candidate& candidate) {
    QByteArray text = printable(candidate.value.stringify());
    if (candidate.declaration.important())
        text += " !important";
    if (!candidate.via.isEmpty())
        text += " (via " + StringUtils::printable(candidate.via) + ")";
    return text;
}

/// What stands in the line of a declaration, column by column.
using Columns = std::array<QByteArray, 5>;

Columns columnsOf(const Candidate& candidate) {
    const QByteArray source = printable(candidate.source);
    return {valueText(candidate), StringUtils::printable(candidate.selectorText()), specificityText(candidate),
            "origin " + QByteArray::number(candidate.origin()), source.isEmpty() ? QByteArray("-") : source};
}

/// Characters, not bytes.
int widthOf(const QByteArray& text) {
    return int(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xc0) != 0x80; }));
}

QByteArray padded(const QByteArray& text, int width) {
    return text + QByteArray(std::max(0, width - widthOf(text)), ' ');
}

QByteArray nameOf(const Mismatch::Unmet& unmet) {
    const QByteArray name = StringUtils::printable(unmet.name);
    switch (unmet.condition) {
    case Mismatch::Condition::Type:
        return "type is not " + name;
    case Mismatch::Condition::Id:
        return "id is not " + name;
    case Mismatch::Condition::Class:
        return "no class " + name;
    default:
        return "no pseudo-class " + name;
    }
}

QByteArray namesOf(const std::vector<Mismatch::Unmet>& unmet) {
    QByteArray names;
    for (const Mismatch::Unmet& one : unmet)
        names += (names.isEmpty() ? "" : ", ") + nameOf(one);
    return names;
}

/// What a property holds. Compound ones hold nothing themselves.
QByteArray heldText(const Attribute* attribute, const std::vector<Candidate>& candidates) {
    if (!attribute)
        return "(the node has no such property)";
    const bool isTaken = std::any_of(candidates.begin(), candidates.end(), [](const Candidate& candidate) {
        return candidate.outcome == Outcome::Wins || candidate.outcome == Outcome::OverriddenByProgram ||
               candidate.outcome == Outcome::OverriddenByTransition;
    });
    return isTaken && !isSet(*attribute) ? "(see its longhands)" : effectiveText(*attribute);
}

} // namespace

ExplainText::ExplainText(std::ostream& out, bool colors) : m_out(out) {
    if (colors)
        m_paint = {"\x1b[1m", "\x1b[1;32m", "\x1b[2;9m", "\x1b[2m", "\x1b[33m", "\x1b[0m"};
}

void ExplainText::writeNode(const SceneWalk& walk) {
    m_out << m_paint.node << StringUtils::printable(walk.path()).constData() << m_paint.plain << "  "
          << printable(walk.node().simpleSelector(true)).constData() << '\n';
}

void ExplainText::writeProperty(const SceneWalk& walk, const Explanation& explanation, const QByteArray& property) {
    const std::vector<Candidate> candidates = explanation.candidates(property);
    m_out << "    " << StringUtils::printable(property).constData() << ": ";
    m_out << heldText(walk.node().attribute(property), candidates).constData() << '\n';
    if (candidates.empty())
        m_out << "        no declaration of the sheets sets it\n";
    else
        writeCandidates(candidates);
}

void ExplainText::writeCandidates(const std::vector<Candidate>& candidates) {
    std::vector<Columns> lines;
    std::array<int, std::tuple_size<Columns>::value> widths{};
    for (const Candidate& candidate : candidates) {
        lines.push_back(columnsOf(candidate));
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const int width = widthOf(lines.back()[i]);
            widths[i] = width > widestColumn ? widths[i] : std::max(widths[i], width);
        }
    }
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const Candidate& candidate = candidates[line];
        const bool wins = candidate.outcome == Outcome::Wins;
        const Columns& columns = lines[line];
        m_out << "      " << (wins ? "* " : "- ") << (wins ? m_paint.winner : m_paint.loser) << columns[0].constData()
              << m_paint.plain << padded("", widths[0] - widthOf(columns[0])).constData()
              << (wins ? "" : m_paint.loserRest);
        for (std::size_t i = 1; i < columns.size(); ++i)
            m_out << "  " << padded(columns[i], widths[i]).constData();
        m_out << m_paint.plain << "  " << (wins ? m_paint.winner : m_paint.reason)
              << reasonOf(candidate, candidates.front()) << m_paint.plain << '\n';
    }
}

void ExplainText::writeWhyNot(const SceneWalk& walk, const Brisko::Selector& selector) {
    const std::optional<Mismatch> mismatch = Brisko::whyNot(walk.node(), selector);
    m_out << "    " << StringUtils::printable(selector.toString()).constData();
    if (!mismatch) {
        m_out << m_paint.winner << " matches" << m_paint.plain << '\n';
        return;
    }
    m_out << m_paint.reason << " does not match" << m_paint.plain << '\n';
    const QByteArray compound = StringUtils::printable(mismatch->text);
    if (mismatch->attempts.empty())
        m_out << "      " << compound.constData() << ": no such ancestor\n";
    const std::size_t shown = std::min(mismatch->attempts.size(), mostAttempts);
    for (std::size_t i = 0; i < shown; ++i) {
        const Mismatch::Attempt& attempt = mismatch->attempts[i];
        m_out << "      " << compound.constData() << ": not "
              << StringUtils::printable(walk.pathOf(*attempt.node)).constData() << " ("
              << namesOf(attempt.unmet).constData() << ")\n";
    }
    if (shown < mismatch->attempts.size())
        m_out << "      and none of the " << mismatch->attempts.size() - shown << " nodes above\n";
}

} // namespace Command
