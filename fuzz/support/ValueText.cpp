#include "fuzz/support/ValueText.h"

namespace Fuzz {

namespace {

using Words = std::vector<QByteArray>;

const Words anyWords{"1",     "-1",      "0",      "50%", "2em",        "1ex", "calc(1px + 50%)",
                     "\"t\"", "inherit", "#12345", "1e9", "99999999999"};

const Words borderWords{"1",           "2px",    "-1",    "thin", "medium",
                        "thick",       "solid",  "solid", "none", "solid",
                        "dashed",      "dotted", "red",   "#f00", "rgba(1, 2, 3, 0.5)",
                        "transparent", "3px"};

const Words fontWords{"italic",  "oblique", "normal",    "small-caps", "bold",  "bolder", "700",
                      "950",     "100",     "condensed", "expanded",   "12px",  "14px",   "2em",
                      "12",      "larger",  "medium",    "xx-large",   "Arial", "serif",  "\"Times New Roman\"",
                      "caption", "auto",    "none"};

const Words backgroundWords{"red",    "#0f08",   "none",   "url(a.png)", "url(\"a.png\")", "url(b.png)",  "repeat-x",
                            "repeat", "space",   "round",  "no-repeat",  "border-box",     "padding-box", "content-box",
                            "left",   "right",   "center", "top",        "bottom",         "10px",        "50%",
                            "cover",  "contain", "auto",   "margin-box"};

const Words transitionWords{
    "opacity", "opacity", "width", "border-top-color", "border", "font-size", "none", "1s", "250ms",
    "0",       "2",       "-1s",   "missing"};

const Words& wordsFor(const QByteArray& property) {
    if (property.startsWith("border"))
        return borderWords;
    if (property.startsWith("font") || property == "line-height")
        return fontWords;
    if (property.startsWith("background"))
        return backgroundWords;
    return property.startsWith("transition") ? transitionWords : anyWords;
}

} // namespace

const Words& shorthandNames() {
    static const Words names{"border",       "border-top",   "border-right", "border-bottom", "border-left",
                             "border-width", "border-style", "border-color", "font",          "background",
                             "transition",   "font",         "background",   "transition"};
    return names;
}

const Words& longhandNames() {
    static const Words names = [] {
        Words all;
        for (const char* side : {"top", "right", "bottom", "left"}) {
            for (const char* part : {"width", "style", "color"})
                all.push_back(QByteArray("border-") + side + "-" + part);
        }
        for (const char* part : {"color", "image", "clip", "origin", "size", "repeat", "position"})
            all.push_back(QByteArray("background-") + part);
        for (const char* part : {"family", "style", "variant", "weight", "kerning", "size", "stretch"})
            all.push_back(QByteArray("font-") + part);
        all.push_back("line-height");
        for (const char* part : {"property", "duration", "delay"})
            all.push_back(QByteArray("transition-") + part);
        return all;
    }();
    return names;
}

QByteArray valueText(Testing::Dice& dice, const QByteArray& property) {
    QByteArray text;
    for (int i = dice.roll(6); i >= 0; --i) {
        text += oneOf(dice, dice.chance(92) ? wordsFor(property) : anyWords);
        if (i > 0)
            text += dice.chance(70) ? " " : dice.chance(70) ? ", " : " / ";
    }
    return text;
}

} // namespace Fuzz
