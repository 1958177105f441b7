#pragma once

#include <QByteArray>
#include <QColor>
#include <QSizeF>

#include <optional>
#include <vector>

namespace Command {

enum class OutputFormat { Text, Json, Sarif };
enum class ColorUse { Auto, Always, Never };

/// A sheet of the command line with the origin that held where it stood.
struct SheetArgument {
    QByteArray path;
    int origin;
};

/// One `--on SELECTOR CHANGE`, as written.
struct ChangeArgument {
    QByteArray selector;
    QByteArray change;
};

/// What the command line asks for.
struct Options {
    QByteArray command; ///< name of the subcommand
    std::vector<QByteArray>
        arguments; ///< scene, selector and property; sheets without an option of their own are in `sheets`
    std::vector<SheetArgument> sheets;
    std::vector<ChangeArgument> changes;
    std::vector<QByteArray> whyNot; ///< selectors that are to be explained
    int origin = 1;                 ///< of the next sheet while the line is read, of the standard input afterwards
    QByteArray media = "screen";
    std::optional<float> dpi;
    std::optional<QByteArray> importRoot; ///< folder that imports are held to
    OutputFormat format = OutputFormat::Text;
    ColorUse color = ColorUse::Auto;
    bool lint = false;               ///< find what the dialect does not do
    std::optional<QByteArray> scene; ///< that sheets are checked against
    bool anyProperty = false;
    bool allAttributes = false;
    bool debug = false;
    bool isWatched = false; ///< whether the command is to run again at every change of its files
    bool help = false;
    bool version = false;
    QByteArray output;                 ///< file to write
    std::optional<QSizeF> pictureSize; ///< pixels of the scene
    double scale = 1;                  ///< pixels of a picture to one of the scene
    QColor background = Qt::transparent;
    std::optional<QByteArray> selectorsText;
    std::optional<QByteArray> simpleSelectorText;
    std::optional<QByteArray> valueText;
};

} // namespace Command
