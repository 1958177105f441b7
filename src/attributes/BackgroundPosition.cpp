#include "Gorvel/Trace.h"
#include "attributes/BackgroundResolver.h"

#include <algorithm>
#include <array>

namespace Brisko {

using Ondex::StyleValue;
using Class = BackgroundImage::PositionOrigin;

namespace {

/// One axis of a position.
struct Axis {
    Class origin;
    float offset;
    Ondex::Attribute::ValueUnit unit;

    void measure(const StyleValue::Component& component) {
        offset = component.asFloat();
        unit = component.unit();
    }
};

struct Axes {
    Axis x, y;
};

bool isKeyword(Class origin) {
    return origin != BackgroundImage::Offset;
}

bool belongsToY(Class origin) {
    return origin == BackgroundImage::Center || origin == BackgroundImage::Top || origin == BackgroundImage::Bottom;
}

bool belongsToX(Class origin) {
    return origin == BackgroundImage::Left || origin == BackgroundImage::Center || origin == BackgroundImage::Right;
}

/// The classes of the first four components; a missing one counts as the centre.
std::array<Class, 4> classify(const StyleValue& item) {
    std::array<Class, 4> classes;
    classes.fill(BackgroundImage::Center);
    for (int i = 0; i < std::min(item.size(), 4); ++i) {
        classes[std::size_t(i)] = item[i].canConvert(StyleValue::TYPE_STRING)
                                      ? BackgroundImage::parsePosition(item[i].asString())
                                      : BackgroundImage::Offset;
    }
    return classes;
}

/// "center", "10px 50%", "top left": one word or number for each axis.
void resolveShort(const StyleValue& item, std::array<Class, 4> classes, Axes& axes) {
    if (belongsToY(classes[0]) && belongsToX(classes[1]))
        std::swap(classes[0], classes[1]);
    const std::array<Axis*, 2> inOrder = {&axes.x, &axes.y};
    for (std::size_t a = 0; a < inOrder.size(); ++a) {
        if (isKeyword(classes[a]))
            inOrder[a]->origin = classes[a];
        else
            inOrder[a]->measure(item[int(a)]);
    }
}

/// "right 10px bottom 20px", "right 10px center", "center bottom 20px": edges with offsets. @return false for all else
bool resolveLong(const StyleValue& item, const std::array<Class, 4>& classes, Axes& axes) {
    std::array<bool, 4> word;
    std::transform(classes.begin(), classes.end(), word.begin(), isKeyword);
    const int count = item.size();
    const bool wordOffsetWord = word[0] && !word[1] && word[2] && classes[0] != BackgroundImage::Center;
    if (count == 3 && word[0] && word[1] && !word[2]) {
        axes.x.origin = classes[0];
        axes.y.origin = classes[1];
        axes.y.measure(item[2]);
    } else if (count == 3 && wordOffsetWord) {
        axes.x.origin = classes[0];
        axes.x.measure(item[1]);
        axes.y.origin = classes[2];
    } else if (count == 4 && wordOffsetWord && classes[2] != BackgroundImage::Center && !word[3]) {
        axes.x.origin = classes[0];
        axes.x.measure(item[1]);
        axes.y.origin = classes[2];
        axes.y.measure(item[3]);
    } else {
        return false;
    }
    return true;
}

/// The centre is one half of the way from an edge.
void centerFromEdge(Axis& axis, Class edge) {
    if (axis.origin == BackgroundImage::Center)
        axis = {edge, 0.5f, Ondex::Attribute::VU_PERCENTAGE};
}

} // namespace

void resolveBackgroundPosition(const StyleValue& item, BackgroundImage& layer) {
    Axes axes = {{layer.positionOriginX, layer.positionOffsetX, layer.offsetUnitX},
                 {layer.positionOriginY, layer.positionOffsetY, layer.offsetUnitY}};
    const std::array<Class, 4> classes = classify(item);
    if (item.size() == 1 || item.size() == 2)
        resolveShort(item, classes, axes);
    else if (!resolveLong(item, classes, axes))
        Gorvel::Trace::warning("CSSBoxModel::reloadBackground # Unsupported value for background-position");
    if (item.size() > 2 && belongsToY(axes.x.origin) && belongsToX(axes.y.origin))
        std::swap(axes.x, axes.y);
    centerFromEdge(axes.x, BackgroundImage::Left);
    centerFromEdge(axes.y, BackgroundImage::Top);
    layer.positionOriginX = axes.x.origin;
    layer.positionOffsetX = axes.x.offset;
    layer.offsetUnitX = axes.x.unit;
    layer.positionOriginY = axes.y.origin;
    layer.positionOffsetY = axes.y.offset;
    layer.offsetUnitY = axes.y.unit;
}

} // namespace Brisko
