#pragma once

#include "Brisko/AttributeBackground.h"
#include "Hexley/Mipmap.h"
#include "attributes/ShorthandCase.h"

#include <QTemporaryDir>

namespace Testing {

/// Where a layer lies on one axis: "right 10px", "left 50%".
inline std::string dumpAxis(Brisko::BackgroundImage::PositionOrigin origin, float offset,
                            Ondex::Attribute::ValueUnit unit) {
    static const char* const origins[] = {"left", "center", "right", "top", "bottom", "offset"};
    return origins[origin] + (" " + dumpValue(Ondex::StyleValue(offset, unit)));
}

/// Where a layer lies: "left 0px, top 10px".
inline std::string dumpPosition(const Brisko::BackgroundImage& layer) {
    return dumpAxis(layer.positionOriginX, layer.positionOffsetX, layer.offsetUnitX) + ", " +
           dumpAxis(layer.positionOriginY, layer.positionOffsetY, layer.offsetUnitY);
}

/// A background of a plain node, with the images a.png, b.png and c.png to be found and a sink for messages.
class BackgroundOfNode : public testing::Test {
protected:
    BackgroundOfNode() {
        int side = 0;
        for (const char* name : {"a.png", "b.png", "c.png"}) {
            ++side;
            QImage image(side, side, QImage::Format_ARGB32);
            image.fill(Qt::red);
            EXPECT_TRUE(image.save(folder.filePath(name)));
        }
        Hexley::Mipmap::setSearchPaths({folder.path()});
    }
    ~BackgroundOfNode() override { Hexley::Mipmap::setSearchPaths({}); }

    const Brisko::BackgroundImage& layer(int i) { return background.bgImages().at(std::size_t(i)); }
    int layerCount() const { return int(background.bgImages().size()); }
    /// Width of the image of a layer: 1 is a.png, 2 b.png, 3 c.png; 0 is none.
    int imageOf(int i) { return layer(i).image ? layer(i).image->image().width() : 0; }

    TraceGuard trace;
    QTemporaryDir folder;
    Ondex::Node node{nullptr, "node"};
    Brisko::AttributeBackground background{&node, "background"};
};

} // namespace Testing
