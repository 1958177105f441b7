#include "OptionTable.h"

#include "Failure.h"
#include "Gorvel/Color.h"
#include "PaintGeometry.h"

#include <algorithm>
#include <cmath>

namespace Command {

namespace {

using Arguments = std::vector<QByteArray>;

[[noreturn]] void refuse(const char* option, const QByteArray& argument, const char* expected) {
    throw Failure::because(QByteArray(option) + ": '" + argument + "' is not " + expected);
}

void setOrigin(Options& options, const Arguments& arguments) {
    bool ok = false;
    const int origin = arguments[0].toInt(&ok);
    if (!ok || origin < 0 || origin > 7)
        refuse("--origin", arguments[0], "a number from 0 to 7");
    options.origin = origin;
}

void setDpi(Options& options, const Arguments& arguments) {
    bool ok = false;
    const float dpi = arguments[0].toFloat(&ok);
    if (!ok || !std::isfinite(dpi) || dpi <= 0.f)
        refuse("--dpi", arguments[0], "a number above 0");
    options.dpi = dpi;
}

void setFormat(Options& options, const Arguments& arguments) {
    if (arguments[0] == "text")
        options.format = OutputFormat::Text;
    else if (arguments[0] == "json")
        options.format = OutputFormat::Json;
    else if (arguments[0] == "sarif")
        options.format = OutputFormat::Sarif;
    else
        refuse("--format", arguments[0], "text or json, or sarif for check");
}

void setColor(Options& options, const Arguments& arguments) {
    if (arguments[0] == "auto")
        options.color = ColorUse::Auto;
    else if (arguments[0] == "always")
        options.color = ColorUse::Always;
    else if (arguments[0] == "never")
        options.color = ColorUse::Never;
    else
        refuse("--color", arguments[0], "auto, always or never");
}

bool isLength(double number) {
    return std::isfinite(number) && number > 0;
}

void setPictureSize(Options& options, const Arguments& arguments) {
    const QList<QByteArray> sides = arguments[0].toLower().split('x');
    bool isWidth = false;
    bool isHeight = false;
    const QSizeF size(sides.value(0).toDouble(&isWidth), sides.value(1).toDouble(&isHeight));
    if (sides.size() != 2 || !isWidth || !isHeight || !isLength(size.width()) || !isLength(size.height()))
        refuse("--size", arguments[0], "a width and a height above 0, like 640x480");
    options.pictureSize = size;
}

void setScale(Options& options, const Arguments& arguments) {
    bool ok = false;
    options.scale = arguments[0].toDouble(&ok);
    if (!ok || !isLength(options.scale))
        refuse("--scale", arguments[0], "a number above 0");
}

void setBackground(Options& options, const Arguments& arguments) {
    Gorvel::Color color;
    if (!color.set(arguments[0]))
        refuse("--background", arguments[0], "a colour");
    options.background = toQColor(color);
}

} // namespace

const std::vector<ExitRow>& exitTable() {
    static const std::vector<ExitRow> table = {
        {Done, "done"},
        {Unmet, "check met an error, or nothing matched"},
        {Failed, "wrong usage, or a file that cannot be read or written"},
    };
    return table;
}

const std::vector<CommandRow>& commandTable() {
    static const std::vector<CommandRow> table = {
        {CheckCommand, "check", "SHEET...", "print the diagnostics of style sheets, one line each"},
        {ParseCommand, "parse", "SHEET | -", "print a sheet as parsed; - reads the standard input",
         "--selectors TEXT | --simple-selector TEXT | --value TEXT"},
        {StyleCommand, "style", "SCENE -s SHEET...", "print the styled tree and where its values come from"},
        {QueryCommand, "query", "SCENE [-s SHEET...] SELECTOR", "print the paths of the nodes that a selector matches"},
        {ExplainCommand, "explain", "SCENE -s SHEET... SELECTOR PROPERTY",
         "print every declaration that competed for a property, strongest first, and why it won or lost",
         "SCENE -s SHEET... SELECTOR --why-not SELECTOR"},
        {RenderCommand, "render", "SCENE -s SHEET... -o FILE.png|FILE.svg", "paint the styled scene into a picture"},
        {InspectCommand, "inspect", "SCENE -s SHEET... -o FILE.html",
         "write a page that shows the boxes of the scene and why its values won"},
        {ViewCommand, "view", "SCENE -s SHEET...", "show the scene in a window, with pointer, keys and transitions"},
        {WatchCommand, "watch", "(style|render|inspect|check) ...",
         "run a command again whenever a file that it reads changes"},
    };
    return table;
}

const std::vector<OptionRow>& optionTable() {
    static const std::vector<OptionRow> table = {
        {"-s,--sheet", "FILE", 1, AllCommands, "a style sheet; repeat it for more, parsed in order into one",
         [](Options& options, const Arguments& a) {
             options.sheets.push_back({a[0], options.origin});
         }},
        {"--origin", "N", 1, AllCommands, "rank, 0 to 7, of the sheets that follow (default 1)", setOrigin},
        {"--media", "NAME", 1, AllCommands, "medium for @media and @import (default screen)",
         [](Options& options, const Arguments& a) { options.media = a[0]; }},
        {"--dpi", "N", 1, AllCommands, "dots per inch for in, cm, mm, pt and pc (default 40.053)", setDpi},
        {"--import-root", "DIR", 1, AllCommands, "refuse imports of files outside of this folder",
         [](Options& options, const Arguments& a) { options.importRoot = a[0]; }},
        {"--any-property", "", 0, SceneCommands | CheckCommand | ParseCommand,
         "keep every property that a sheet names, known or not",
         [](Options& options, const Arguments&) { options.anyProperty = true; }},
        {"--on", "SELECTOR CHANGE", 2, AllCommands,
         "after styling, change the nodes that match: :name -:name .name -.name #id",
         [](Options& options, const Arguments& a) {
             options.changes.push_back({a[0], a[1]});
         }},
        {"--lint", "", 0, CheckCommand, "name what this dialect of CSS does not do, and what to write instead",
         [](Options& options, const Arguments&) { options.lint = true; }},
        {"--scene", "FILE", 1, CheckCommand,
         "what --lint does, and what the sheets say in vain to the nodes of this scene",
         [](Options& options, const Arguments& a) { options.scene = a[0]; }},
        {"--all", "", 0, StyleCommand, "list every attribute, also where only the default holds",
         [](Options& options, const Arguments&) { options.allAttributes = true; }},
        {"--why-not", "SELECTOR", 1, ExplainCommand,
         "say why this selector does not match the nodes; repeat it for more. PROPERTY may be left out then",
         [](Options& options, const Arguments& a) { options.whyNot.push_back(a[0]); }},
        {"-o,--output", "FILE", 1, PictureCommands, "the file to write: a picture, .png or .svg, or a page, .html",
         [](Options& options, const Arguments& a) { options.output = a[0]; }},
        {"--size", "WxH", 1, PictureCommands | ViewCommand,
         "part of the scene to show, in its pixels (default: the box of the root)", setPictureSize},
        {"--scale", "N", 1, RenderCommand | ViewCommand, "pixels of the picture to one of the scene (default 1)",
         setScale},
        {"--background", "COLOR", 1, PictureCommands | ViewCommand,
         "what the picture is filled with first (default transparent)", setBackground},
        {"--selectors", "TEXT", 1, ParseCommand, "parse a list of selectors instead of a sheet",
         [](Options& options, const Arguments& a) { options.selectorsText = a[0]; }},
        {"--simple-selector", "TEXT", 1, ParseCommand, "parse the leftmost compound of a selector",
         [](Options& options, const Arguments& a) { options.simpleSelectorText = a[0]; }},
        {"--value", "TEXT", 1, ParseCommand, "parse one property value",
         [](Options& options, const Arguments& a) { options.valueText = a[0]; }},
        {"--format", "text|json", 1, AllCommands, "form of the output (default text)", setFormat},
        {"--format", "text|json|sarif", 1, CheckCommand, "form of the output of check (default text)", setFormat},
        {"--color", "auto|always|never", 1, AllCommands, "colours; auto: on terminals, unless NO_COLOR is set",
         setColor},
        {"--debug", "", 0, AllCommands, "debug messages too",
         [](Options& options, const Arguments&) { options.debug = true; }},
        {"-h,--help", "", 0, AllCommands | WatchCommand, "print this help",
         [](Options& options, const Arguments&) { options.help = true; }},
        {"--version", "", 0, AllCommands | WatchCommand, "print the version",
         [](Options& options, const Arguments&) { options.version = true; }},
    };
    return table;
}

std::vector<const OptionRow*> optionsOf(unsigned commands) {
    std::vector<const OptionRow*> options;
    for (const OptionRow& row : optionTable()) {
        if ((row.commands & commands) != commands)
            continue;
        const auto same = std::find_if(options.begin(), options.end(), [&row](const OptionRow* option) {
            return QByteArray(option->names) == row.names;
        });
        if (same == options.end())
            options.push_back(&row);
        else
            *same = &row;
    }
    return options;
}

} // namespace Command
