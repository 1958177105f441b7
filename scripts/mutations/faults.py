"""Small faults, each of which the tests of its area have to notice.

The old text stands exactly once in its file, and what comes of it builds without a warning. Whoever changes such a line
changes it here as well, or writes down another fault of the same kind.
"""

from dataclasses import dataclass


@dataclass(frozen=True)
class Fault:
    file: str
    old: str
    new: str

    @property
    def area(self) -> str:
        """The folder of src, whose tests are run."""
        return self.file.split("/")[1]

    def __str__(self) -> str:
        return f"{self.file}: {' '.join(self.old.split())}  ->  {' '.join(self.new.split()) or 'nothing'}"


MODEL = [
    Fault("src/model/SimpleSelector.cpp", " && m_id.isEmpty();", ";"),
    Fault("src/model/SimpleSelector.cpp", "if (id.isEmpty() || id == m_id)", "if (id.isEmpty())"),
    Fault("src/model/SimpleSelector.cpp", "m_combinator == other.m_combinator && ", ""),
    Fault("src/model/Selector.cpp", "compound->updateString();", ""),
    Fault("src/model/Selector.cpp", "return size() < other.size();", "return size() > other.size();"),
    Fault("src/model/Selector.cpp", "compound->setCombinator(SimpleSelector::None);", ""),
    Fault("src/model/StyleSheet.cpp", " || rule.declarations().empty()", ""),
    Fault("src/model/SourceTable.cpp", "!isSame(m_runs.back().name, file)", "isSame(m_runs.back().name, file)"),
    Fault("src/model/Declaration.cpp", " &&\n           m_important == other.m_important", ""),
    Fault("src/model/Specificity.h", "constexpr int limit = 0xFF;", "constexpr int limit = 0xFE;"),
]

PARSER = [
    Fault("src/parser/CSSParser.cpp", "compound.detach();", ""),
    Fault("src/parser/GrammarActions.cpp", "    if (mediaMatch)\n        commit();",
          "    if (!mediaMatch)\n        commit();"),
    Fault("src/parser/GrammarActions.cpp", 'QLatin1String("all"), Qt::CaseInsensitive',
          'QLatin1String("all"), Qt::CaseSensitive'),
    Fault("src/parser/GrammarActions.cpp", "case StyleValue::SEPARATOR_SLASH:",
          "case StyleValue::SEPARATOR_WHITE_SPACE:"),
    Fault("src/parser/ParserDriver.cpp", "return m_dpi > 0 ?", "return m_dpi >= 0 ?"),
    Fault("src/parser/StringEscapes.cpp", "constexpr int maximumDigits = 6;", "constexpr int maximumDigits = 5;"),
    Fault("src/parser/TokenFilter.cpp", "m_exprError = true;", ""),
    Fault("src/parser/TokenFilter.cpp", "positiveAngle(float(value->number))", "positiveAngle(-float(value->number))"),
    Fault("src/parser/Import.cpp", "nested.m_media = m_media;", ""),
    Fault("src/parser/ColourFunctions.cpp", '{"hsva", 4, hsv}', '{"hsva", 4, hsl}'),
]

STYLING = [
    Fault("src/styling/AppliedValues.h", "m_weight > held.m_weight", "m_weight < held.m_weight"),
    Fault("src/styling/StyleableMatch.cpp", "PseudoClasses::GoesOnBelow : PseudoClasses::EndsHere",
          "PseudoClasses::EndsHere : PseudoClasses::GoesOnBelow"),
    Fault("src/styling/StyleableStyle.cpp", "property.isImportant() ? ImportantStyleLayer : StyleLayer",
          "property.isImportant() ? StyleLayer : ImportantStyleLayer"),
    Fault("src/styling/StyleableIdentity.cpp", "names.removeAll(QByteArray());", ""),
    Fault("src/styling/StyleableIdentity.cpp", "m_classes.contains(name.toLower())", "m_classes.contains(name)"),
    Fault("src/styling/StylePass.cpp", "} else if (!deferred.compound->isEmpty()) {", "} else {"),
    Fault("src/styling/StylePass.cpp", "if (properties[index].generation() != m_newGeneration)",
          "if (properties[index].generation() == m_newGeneration)"),
    Fault("src/styling/StateList.cpp", "specificity = std::max(specificity, ", "specificity = std::min(specificity, "),
    Fault("src/styling/Style.cpp", "return m_sheet == other.m_sheet && ", "return "),
    Fault("src/styling/LazyAttributeManager.cpp",
          "for (auto offer = last; offer != first;)\n        factories.push_back((--offer)->second.factory);",
          "for (auto offer = first; offer != last; ++offer)\n        factories.push_back(offer->second.factory);"),
]

ATTRIBUTES = [
    Fault("src/attributes/Border.cpp", "m_style != None && ", ""),
    Fault("src/attributes/AttributeBorderSingle.cpp", "if (!(width < 0.f))", "if (!(width <= 0.f))"),
    Fault("src/attributes/AttributeBorder.cpp", " && bottom() == left()", ""),
    Fault("src/attributes/FontShorthand.cpp", "component.asInt() <= 900", "component.asInt() < 900"),
    Fault("src/attributes/AttributeFont.cpp", "if (words.size() != 4)", "if (words.size() < 4)"),
    Fault("src/attributes/BackgroundShorthand.cpp", "        if (layer.origin.isEmpty())\n    ", "    "),
    Fault("src/attributes/BackgroundResolver.cpp", '{"content-box", BackgroundImage::ContentBox}',
          '{"content-box", BackgroundImage::PaddingBox}'),
    Fault("src/attributes/BackgroundResolver.cpp", "resolved[std::size_t(i % list.size())]", "resolved.front()"),
    Fault("src/attributes/BackgroundPosition.cpp", "centerFromEdge(axes.y, BackgroundImage::Top);", ""),
    Fault("src/attributes/AttributeTransitionAnim.cpp", "noLonger.erase(name);", ""),
]

FAULTS = [*MODEL, *PARSER, *STYLING, *ATTRIBUTES]
