#include "attributes/BackgroundResolver.h"

#include "Gorvel/Trace.h"
#include "Hexley/Mipmap.h"
#include "attributes/Keywords.h"

namespace Brisko {

using Gorvel::Trace;
using Ondex::Attribute;
using Ondex::StyleValue;
using Box = BackgroundImage::Box;
using Repeat = BackgroundImage::Repeat;
using SizeMode = BackgroundImage::SizeMode;

namespace {

constexpr Keyword<Box> boxes[] = {{"border-box", BackgroundImage::BorderBox},
                                  {"content-box", BackgroundImage::ContentBox},
                                  {"padding-box", BackgroundImage::PaddingBox}};

struct RepeatPair {
    Repeat x, y;
};

/// Repetition from one word, which stands for both axes.
constexpr struct {
    const char* word;
    RepeatPair repeat;
} repeatWords[] = {{"repeat-x", {BackgroundImage::RepeatTiles, BackgroundImage::NoRepeat}},
                   {"repeat-y", {BackgroundImage::NoRepeat, BackgroundImage::RepeatTiles}},
                   {"repeat", {BackgroundImage::RepeatTiles, BackgroundImage::RepeatTiles}},
                   {"space", {BackgroundImage::SpaceTiles, BackgroundImage::SpaceTiles}},
                   {"round", {BackgroundImage::RoundTiles, BackgroundImage::RoundTiles}},
                   {"no-repeat", {BackgroundImage::NoRepeat, BackgroundImage::NoRepeat}}};

/// Repetition of one axis, from a pair of words.
constexpr Keyword<Repeat> axisRepeats[] = {{"repeat", BackgroundImage::RepeatTiles},
                                           {"space", BackgroundImage::SpaceTiles},
                                           {"round", BackgroundImage::RoundTiles},
                                           {"no-repeat", BackgroundImage::NoRepeat}};

/// Reads the box that @p text names; another text is reported and leaves @p box as it was.
void readBox(const char* property, const QString& text, Box& box) {
    if (const Keyword<Box>* keyword = findKeyword(boxes, text.toUtf8()))
        box = keyword->value;
    else
        Trace::warning("CSSBoxModel::reloadBackground # Unsupported value for %s: '%s', available values: border-box, "
                       "content-box or padding-box",
                       property, text.toUtf8().constData());
}

void readSizeAxis(const StyleValue::Component& component, SizeMode& mode, float& size) {
    if (component == QByteArray("auto")) {
        mode = BackgroundImage::Auto;
        return;
    }
    mode = component.unit() == Attribute::VU_PERCENTAGE ? BackgroundImage::Percentage : BackgroundImage::Length;
    size = component.asFloat();
}

void readSize(const StyleValue& item, BackgroundImage& layer) {
    if (item.size() == 2) {
        readSizeAxis(item[0], layer.sizeModeX, layer.sizeX);
        readSizeAxis(item[1], layer.sizeModeY, layer.sizeY);
    } else if (item.size() != 1) {
        Trace::warning("CSSBoxModel::reloadBackground # Unsupported value for background-size");
    } else if (item[0] == QByteArray("contain")) {
        layer.sizeModeX = layer.sizeModeY = BackgroundImage::Contain;
    } else if (item[0] == QByteArray("cover")) {
        layer.sizeModeX = layer.sizeModeY = BackgroundImage::Cover;
    } else {
        readSizeAxis(item[0], layer.sizeModeX, layer.sizeX);
        layer.sizeModeY = BackgroundImage::Auto;
    }
}

bool readRepeatWord(const QByteArray& word, BackgroundImage& layer) {
    for (const auto& row : repeatWords) {
        if (word == row.word) {
            layer.repeatX = row.repeat.x;
            layer.repeatY = row.repeat.y;
            return true;
        }
    }
    return false;
}

bool readRepeatPair(const QByteArray& wordX, const QByteArray& wordY, BackgroundImage& layer) {
    layer.repeatX = keywordValue(axisRepeats, wordX);
    layer.repeatY = keywordValue(axisRepeats, wordY);
    return findKeyword(axisRepeats, wordX) && findKeyword(axisRepeats, wordY);
}

void readRepeat(const StyleValue& item, BackgroundImage& layer) {
    const bool isKnown = item.size() == 1   ? readRepeatWord(item.asKeyword(0), layer)
                         : item.size() == 2 ? readRepeatPair(item.asKeyword(0), item.asKeyword(1), layer)
                                            : false;
    if (!isKnown)
        Trace::warning("CSSBoxModel::reloadBackground # Unsupported value for background-repeat");
}

/// Reads item @p i of a list into the layer; past the end of a list the layers before are copied in turn.
template <typename List, typename Read, typename Copy>
void readOrCopy(const List& list, int i, const std::vector<BackgroundImage>& resolved, const Read& read,
                const Copy& copy) {
    if (i < list.size())
        read(list[i]);
    else if (!list.isEmpty())
        copy(resolved[std::size_t(i % list.size())]);
}

} // namespace

BackgroundResolver::BackgroundResolver(const Lists& lists) : m_lists(lists) {
    m_resolved.reserve(std::size_t(lists.images.size()));
    for (int i = 0; i < lists.images.size(); ++i)
        m_resolved.push_back(resolve(i));
}

BackgroundImage BackgroundResolver::resolve(int i) const {
    BackgroundImage layer;
    if (m_lists.images[i] != QLatin1String("none"))
        layer.image = Hexley::Mipmap::acquire(m_lists.images[i], false);
    readOrCopy(
        m_lists.clips, i, m_resolved, [&](const QString& text) { readBox("background-clip", text, layer.clip); },
        [&](const BackgroundImage& from) { layer.clip = from.clip; });
    readOrCopy(
        m_lists.origins, i, m_resolved, [&](const QString& text) { readBox("background-origin", text, layer.origin); },
        [&](const BackgroundImage& from) { layer.origin = from.origin; });
    readOrCopy(
        m_lists.sizes, i, m_resolved, [&](const StyleValue& item) { readSize(item, layer); },
        [&](const BackgroundImage& from) {
            layer.sizeModeX = from.sizeModeX;
            layer.sizeModeY = from.sizeModeY;
            layer.sizeX = from.sizeX;
            layer.sizeY = from.sizeY;
        });
    readOrCopy(
        m_lists.repeats, i, m_resolved, [&](const StyleValue& item) { readRepeat(item, layer); },
        [&](const BackgroundImage& from) {
            layer.repeatX = from.repeatX;
            layer.repeatY = from.repeatY;
        });
    readOrCopy(
        m_lists.positions, i, m_resolved, [&](const StyleValue& item) { resolveBackgroundPosition(item, layer); },
        [&](const BackgroundImage& from) {
            layer.positionOriginX = from.positionOriginX;
            layer.positionOriginY = from.positionOriginY;
            layer.positionOffsetX = from.positionOffsetX;
            layer.positionOffsetY = from.positionOffsetY;
            layer.offsetUnitX = from.offsetUnitX;
            layer.offsetUnitY = from.offsetUnitY;
        });
    return layer;
}

std::vector<BackgroundImage> BackgroundResolver::layers() const {
    if (m_resolved.size() == 1 && !m_resolved.front().image)
        return {};
    return m_resolved;
}

Box BackgroundResolver::colorClip(Box before) const {
    if (m_lists.images.isEmpty() && m_lists.clips.size() == 1) {
        readBox("background-clip", m_lists.clips.front(), before);
        return before;
    }
    return m_resolved.empty() ? BackgroundImage::BorderBox : m_resolved.back().clip;
}

} // namespace Brisko
