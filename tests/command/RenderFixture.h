#pragma once

#include "command/CommandRun.h"

#include <QImage>

namespace Testing {

/// A pixel of a picture, and its colour as Qt writes it: "#aarrggbb" with straight alpha.
struct Pixel {
    int x;
    int y;
    const char* color;
};

/// Runs `render` over scenes and sheets that tests give as text.
class RenderTest : public CommandTest {
protected:
    /// Renders into "out.png" after the rule `* { background: transparent }`. Any message fails the test.
    /// @return the picture; empty where there is none
    QImage render(const std::string& scene, const std::string& sheet, const std::vector<std::string>& more = {});
    /// The same into "out.svg". @return the document
    QByteArray renderSvg(const std::string& scene, const std::string& sheet, const std::vector<std::string>& more = {});
    /// Writes the image "tiles.png", 10 x 10 pixels: red, green, blue and transparent quarters.
    void writeTiles();

private:
    void renderTo(const std::string& output, const std::string& scene, const std::string& sheet,
                  const std::vector<std::string>& more);
};

void expectPixels(const QImage& picture, const std::vector<Pixel>& pixels);

/// A case of the tests that paint one sheet over one scene.
struct RenderCase {
    const char* name;
    const char* scene;
    const char* sheet;
    std::vector<Pixel> pixels;
};

inline std::ostream& operator<<(std::ostream& out, const RenderCase& row) {
    return out << row.name;
}

inline std::string renderCaseName(const testing::TestParamInfo<RenderCase>& info) {
    return info.param.name;
}

} // namespace Testing
