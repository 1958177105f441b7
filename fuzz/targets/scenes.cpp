#include "brisko/Failure.h"
#include "brisko/GuiSession.h"
#include "brisko/SceneJson.h"
#include "brisko/SceneReader.h"
#include "brisko/SceneText.h"
#include "brisko/SceneWalk.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/TextMutator.h"

#include "Brisko/CSSParser.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <sstream>

// Any bytes as a scene document: reading ends with a tree or with one line that says why not, and a second reading with
// the same; the tree can be styled, walked, and written as text without control characters and as well-formed JSON.

using Brisko::Styleable;
using Command::Listed;

namespace {

constexpr const char* styles =
    "* { opacity: 0.5; width: 50px; border: 1px solid red } a > b, .x { font: 12px Foo; padding: 1 2 }"
    "#id:hover * { transition: opacity 1s; background: red; color: blue !important }";

const QByteArray& pathOf(const QByteArray& document) {
    static QTemporaryFile file;
    static const QByteArray path = file.open() ? QFile::encodeName(file.fileName()) : QByteArray();
    file.seek(0);
    file.write(document);
    file.flush();
    file.resize(document.size());
    return path;
}

struct Reading {
    std::unique_ptr<Styleable> root;
    std::string failure; ///< empty where there is a root
};

Reading readScene(const QByteArray& path, const Command::Properties& properties) {
    try {
        return {Command::SceneReader(path, properties).read(), std::string()};
    } catch (const Command::Failure& failure) {
        return {nullptr, failure.what()};
    }
}

std::string jsonOf(Styleable& root) {
    std::ostringstream text;
    Command::JsonWriter json(text);
    Command::writeScene(json, root, Listed::All);
    return text.str();
}

void expectReadable(Styleable& root) {
    std::ostringstream text;
    Command::writeSceneText(text, root, Listed::Set, false);
    for (const char c : text.str())
        EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= ' ') << "a control character: " << int(c);
    QJsonParseError error;
    QJsonDocument::fromJson(QByteArray::fromStdString(jsonOf(root)), &error);
    // Qt reads no more than 1024 levels of arrays and objects.
    EXPECT_TRUE(error.error == QJsonParseError::NoError || error.error == QJsonParseError::DeepNesting)
        << error.errorString().toStdString();
}

void expectTreeOfHosts(Styleable& root) {
    for (Command::SceneWalk walk(root); walk.isValid(); walk.next()) {
        EXPECT_FALSE(walk.node().isStylingSuppressed());
        for (const Styleable* child : walk.node().children())
            EXPECT_EQ(child->host(), &walk.node());
    }
}

} // namespace

namespace Fuzz {

const std::vector<std::string>& vocabulary() {
    static const std::vector<std::string> words = {
        "<a>",
        "</a>",
        "<b/>",
        "<scene>",
        "</scene>",
        "<panel id=\"id\" class=\"x Y\" pseudo=\"hover\">",
        "</panel>",
        "<font>italic 700 12px/14px Arial</font>",
        "<font>",
        "</font>",
        "<border>2px solid red</border>",
        "<css-id>",
        "<background>",
        "<width>10</width>",
        "<text>",
        "</text>",
        "<transition-duration>",
        "text",
        " id=\"i\"",
        " class=\"a b\"",
        " class=\"\"",
        " pseudo=\"a b\"",
        " border=\"2px solid red\"",
        " width=\"10px\"",
        " size=\"1 2\"",
        " padding=\"1 2 3 4\"",
        " opacity=\"0.5\"",
        " text=\"'t'\"",
        " css-class=\"x\"",
        " transition=\"opacity 1s\"",
        " background=\"url(a.png) no-repeat, red\"",
        " font=\"12px Foo\"",
        " xml:lang=\"x\"",
        " xmlns=\"urn:x\"",
        " xmlns:p=\"urn:p\"",
        "<p:a>",
        "<?xml version=\"1.0\"?>",
        "<?pi?>",
        "<!DOCTYPE a>",
        "<!DOCTYPE a [<!ENTITY e 'x'>]>",
        "<!-- c -->",
        "<![CDATA[",
        "]]>",
        "&lt;",
        "&amp;",
        "&#10;",
        "&#x1F600;",
        "&e;",
        "&nbsp;",
        "<",
        ">",
        "/",
        "\"",
        "'",
        "=",
        " ",
        "\n",
        "\t",
        "\xc3\xa9",
        "\xff",
        "encoding=\"latin1\"",
    };
    return words;
}

std::string sampleText(unsigned seed) {
    const std::size_t count = vocabulary().size();
    std::string text = "<scene>";
    for (unsigned i = 0; i < 1 + seed % 8; ++i)
        text += vocabulary()[(seed / 8 + i * 37) % count];
    return text + "</scene>";
}

void checkInput(const QByteArray& bytes) {
    static const Command::GuiSession session;
    static const Command::Properties properties;
    const QByteArray& path = pathOf(bytes);
    const Reading reading = readScene(path, properties);
    const Reading again = readScene(path, properties);
    EXPECT_EQ(reading.failure, again.failure);
    const QRegularExpression form(QLatin1Char('^') + QRegularExpression::escape(QString::fromUtf8(path)) +
                                  QLatin1String(":[0-9]+:[0-9]+: error: "));
    EXPECT_TRUE(reading.root || form.match(QString::fromStdString(reading.failure)).hasMatch()) << reading.failure;
    ASSERT_EQ(reading.root != nullptr, reading.failure.empty());
    if (!reading.root)
        return;
    EXPECT_EQ(jsonOf(*reading.root), jsonOf(*again.root));
    expectTreeOfHosts(*reading.root);

    const auto sheet = std::make_shared<Brisko::StyleSheet>();
    Brisko::CSSParser().parseString(*sheet, styles, nullptr, Brisko::SimpleSelector::AuthorOrigin);
    reading.root->setStyle(Brisko::Style(sheet));
    expectReadable(*reading.root);
}

} // namespace Fuzz
