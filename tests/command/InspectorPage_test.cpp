#include "brisko/InspectorPage.h"

#include "brisko/InspectorParts.h"
#include "command/InspectFixture.h"

#include <QCryptographicHash>

namespace {

using Command::embeddable;
using Testing::dataOf;
using Testing::InspectTest;
using Testing::textBetween;

class InspectorPage : public InspectTest {};

const char attack[] = "</script><img src=x onerror=alert(1)>&amp;<!--<script>\xe2\x80\xa8\xe2\x80\xa9";

QByteArray hashSource(const QByteArray& text) {
    return "'sha256-" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64() + "'";
}

TEST(Embeddable, EscapesWhatMeansSomethingInHtml) {
    EXPECT_EQ(embeddable(R"(["<a>", "&", "b"])"), R"(["\u003ca\u003e", "\u0026", "b"])");
    EXPECT_EQ(embeddable("\"\xe2\x80\xa8\xe2\x80\xa9\xe2\x80\xa7\""), "\"\\u2028\\u2029\xe2\x80\xa7\"");
    EXPECT_EQ(embeddable(""), "");
}

TEST_F(InspectorPage, PolicyAllowsItsOwnScriptAndStyleOnly) {
    const QByteArray page = inspect("<s/>", "");
    const QByteArray script = textBetween(page, "<script>", "</script>");
    const QByteArray style = textBetween(page, "<style>", "</style>");
    ASSERT_GT(script.size(), 1000);
    ASSERT_GT(style.size(), 1000);
    const QByteArray policy = textBetween(page, R"(<meta http-equiv="Content-Security-Policy" content=")", "\"");
    const QByteArray expected = "default-src 'none'; script-src " + hashSource(script) + "; style-src " +
                                hashSource(style) +
                                "; img-src data:; base-uri 'none'; form-action 'none'; "
                                "require-trusted-types-for 'script'; trusted-types 'none'";
    EXPECT_EQ(policy.toStdString(), expected.toStdString());
    EXPECT_LT(page.indexOf("Content-Security-Policy"), page.indexOf("<style>"));
}

TEST_F(InspectorPage, NothingIsAskedForFromElsewhere) {
    const QByteArray parts =
        QByteArray(Command::InspectorParts::page) + Command::InspectorParts::style + Command::InspectorParts::script;
    for (const char* word :
         {"innerHTML", "outerHTML", "insertAdjacent", "document.write", "eval(", "Function(", "fetch(",
          "XMLHttpRequest", "WebSocket", "import(", "@import", "url(", "https:", "style=\"", " onclick"})
        EXPECT_FALSE(parts.contains(word)) << word;
    // The one address is the name of a namespace.
    EXPECT_EQ(parts.count("http:"), 1);
    EXPECT_TRUE(parts.contains("'http://www.w3.org/2000/svg'"));
}

TEST_F(InspectorPage, TextsNeverBecomeMarkup) {
    const std::string text = attack;
    const std::string inXml = QString::fromUtf8(attack).toHtmlEscaped().toStdString();
    const std::string scene = "<s><a id=\"" + inXml + "\" class=\"" + inXml + "\" pseudo=\"" + inXml + "\" none=\"" +
                              inXml + "\">" + inXml + "</a></s>";
    const std::string sheet = "a { text: \"" + text + "\"; " + "color: \"" + text + "\" }\n" + text +
                              " { opacity: 1 }\n#\\<\\/script\\> { width: 1px }";
    const QByteArray benign = inspect("<s><a/></s>", "");
    const QByteArray page = inspect(scene, sheet);
    for (const char* tag : {"<", ">", "<script", "</script", "<img", "<!--"})
        EXPECT_EQ(page.count(tag), benign.count(tag)) << tag;
    EXPECT_EQ(textBetween(page, "<script>", "</script>"), textBetween(benign, "<script>", "</script>"));
    bool isKept = false;
    for (const QJsonValue& kept : dataOf(page)["texts"].toArray())
        isKept = isKept || kept.toString() == QString::fromUtf8(attack);
    EXPECT_TRUE(isKept);
}

TEST_F(InspectorPage, NamesOfFilesNeverBecomeMarkup) {
    const std::string name = "<img src=x onerror=alert(1)>";
    const std::string scene = write(name + ".xml", "<s no='1'/>");
    const std::string sheet = write(name + ".css", "s { opacity 1; opacity: 1 }");
    const QByteArray benign = inspect("<s/>", "");
    ASSERT_EQ(run({"inspect", scene, "-s", sheet, "-o", path("out.html")}).exit, 0);
    EXPECT_EQ(page().count("<"), benign.count("<"));
    EXPECT_EQ(dataOf(page())["scene"].toString().toStdString(), scene);
}

TEST_F(InspectorPage, MarksInTheDataAreNotReplaced) {
    const QByteArray page = inspect("<s><a>@SCRIPT@ @DATA@ @STYLE@ @POLICY@</a></s>", "");
    EXPECT_EQ(page.count("@SCRIPT@"), 1);
    EXPECT_EQ(page.count("@DATA@"), 1);
    EXPECT_TRUE(dataOf(page)["texts"].toArray().contains("@SCRIPT@ @DATA@ @STYLE@ @POLICY@"));
}

} // namespace
