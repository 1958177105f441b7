#include "command/RenderFixture.h"

#include <QColor>
#include <QFile>

namespace Testing {

void RenderTest::renderTo(const std::string& output, const std::string& scene, const std::string& sheet,
                          const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"render", write("scene.xml", scene),
                                          "-s",     write("sheet.css", "* { background: transparent }\n" + sheet),
                                          "-o",     path(output)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const RunResult result = run(arguments);
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "");
}

QImage RenderTest::render(const std::string& scene, const std::string& sheet, const std::vector<std::string>& more) {
    renderTo("out.png", scene, sheet, more);
    return QImage(QString::fromStdString(path("out.png")));
}

QByteArray RenderTest::renderSvg(const std::string& scene, const std::string& sheet,
                                 const std::vector<std::string>& more) {
    renderTo("out.svg", scene, sheet, more);
    QFile file(QString::fromStdString(path("out.svg")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

void RenderTest::writeTiles() {
    QImage image(10, 10, QImage::Format_ARGB32);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            const QColor top = x < 5 ? QColor(255, 0, 0) : QColor(0, 255, 0);
            const QColor bottom = x < 5 ? QColor(0, 0, 255) : QColor(0, 0, 0, 0);
            image.setPixelColor(x, y, y < 5 ? top : bottom);
        }
    }
    EXPECT_TRUE(image.save(QString::fromStdString(path("tiles.png"))));
}

void expectPixels(const QImage& picture, const std::vector<Pixel>& pixels) {
    for (const Pixel& pixel : pixels) {
        ASSERT_TRUE(picture.valid(pixel.x, pixel.y)) << pixel.x << "," << pixel.y;
        EXPECT_EQ(picture.pixelColor(pixel.x, pixel.y).name(QColor::HexArgb).toStdString(), pixel.color)
            << "at " << pixel.x << "," << pixel.y;
    }
}

} // namespace Testing
