#include "Ondex/Archive.h"

#include "Ondex/AttributeT.h"
#include "Ondex/AttributeTuple.h"
#include "Ondex/Node.h"

#include "support/TraceGuard.h"

#include <QBuffer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace Ondex;
using testing::ElementsAre;

namespace {

constexpr Attribute::Layer user = Attribute::UserLayer;

/// A panel with values of several types and two children called "item".
struct Panel {
    Node node{nullptr, "panel"};
    AttributeT<float>* opacity = new AttributeT<float>(&node, "opacity", 1.f);
    AttributeT<QString>* text = new AttributeT<QString>(&node, "text");
    AttributeT<QStringList>* images = new AttributeT<QStringList>(&node, "images");
    AttributeT<Gorvel::ColorPMA>* color = new AttributeT<Gorvel::ColorPMA>(&node, "color");
    AttributeTupleT<Pemmit::SizeT<float>>* size =
        new AttributeTupleT<Pemmit::SizeT<float>>(&node, "size", {"width", "height"});
    Node* items[2] = {new Node(&node, "item"), new Node(&node, "item")};
    AttributeT<int>* counts[2] = {new AttributeT<int>(items[0], "count", 0), new AttributeT<int>(items[1], "count", 0)};
};

QByteArray body(const QByteArray& document) {
    return document.mid(document.indexOf("?>") + 2).simplified();
}

} // namespace

TEST(Archive, WritesTheUserLayerOfEveryAttribute) {
    Panel panel;
    *panel.opacity = 0.5f;
    panel.text->setValue("styled", Attribute::StyleLayer);
    *panel.counts[1] = 3;
    EXPECT_EQ(body(Archive::write(panel.node)),
              QByteArray("<panel> <opacity>0.5</opacity> <item/> <item> <count>3</count> </item> </panel>"));
}

TEST(Archive, WritesEffectiveValuesWhenAsked) {
    Panel panel;
    panel.opacity->setValue(0.25f, Attribute::ImportantStyleLayer);
    *panel.opacity = 0.5f;
    panel.text->setValue("styled", Attribute::StyleLayer);
    EXPECT_EQ(body(Archive::write(panel.node, Attribute::SerializeEffectiveValue)),
              QByteArray("<panel> <opacity>0.25</opacity> <text>styled</text> <item/> <item/> </panel>"));
}

TEST(Archive, LeavesOutWhatIsNotSerializable) {
    Panel panel;
    *panel.opacity = 0.5f;
    panel.opacity->setSerializable(false);
    panel.items[0]->setSerializable(false);
    EXPECT_EQ(body(Archive::write(panel.node)), QByteArray("<panel> <item/> </panel>"));
}

TEST(Archive, NodeComesBackFromItsDocument) {
    Panel panel;
    *panel.opacity = 0.1f;
    *panel.text = QStringLiteral(" <a & \"b\">\r\n\tc\u00e4\U0001F600 ");
    *panel.images = QStringList{"a.png", "data:x,y"};
    *panel.color = Gorvel::ColorPMA(.5f, 0.f, 0.f, .5f);
    panel.size->component(1).setValue(7.f, user);
    *panel.counts[0] = 1;
    *panel.counts[1] = 2;
    const ArchiveElement element = Archive::read(Archive::write(panel.node));
    Panel other;
    EXPECT_TRUE(other.node.deserialize(element));
    EXPECT_EQ(other.opacity->value(), 0.1f);
    EXPECT_EQ(other.text->value(), panel.text->value());
    EXPECT_EQ(other.images->value(), panel.images->value());
    EXPECT_EQ(other.color->value(), panel.color->value());
    EXPECT_EQ(other.size->value(), (Pemmit::SizeT<float>(0.f, 7.f)));
    EXPECT_FALSE(other.size->component(0).isChanged());
    EXPECT_EQ(other.counts[0]->value(), 1);
    EXPECT_EQ(other.counts[1]->value(), 2);
    EXPECT_EQ(*other.counts[1]->valueOnLayer(user), 2);
}

TEST(Archive, ElementsThatNothingTakesAreSkippedWithAWarning) {
    Testing::TraceGuard trace;
    Panel panel;
    const ArchiveElement element = Archive::read("<panel><nothing/><opacity>much</opacity><item><count>1</count></"
                                                 "item><item/><item/><opacity>0.5</opacity></panel>");
    EXPECT_TRUE(panel.node.deserialize(element));
    EXPECT_EQ(panel.counts[0]->value(), 1);
    EXPECT_EQ(panel.opacity->value(), 0.5f);
    EXPECT_THAT(trace.takeWarnings(), ElementsAre("Node::deserialize # panel # Element 'nothing' skipped",
                                                  "Node::deserialize # panel # Element 'opacity' skipped",
                                                  "Node::deserialize # panel # Element 'item' skipped"));
}

TEST(Archive, NullElementIsMalformed) {
    Panel panel;
    EXPECT_FALSE(panel.node.deserialize(ArchiveElement()));
    EXPECT_FALSE(panel.opacity->deserialize(ArchiveElement()));
    EXPECT_FALSE(panel.opacity->deserializeXML(ArchiveElement()));
}

TEST(Archive, AttributeReadsItsTextIntoTheUserLayer) {
    AttributeT<float> attribute(nullptr, "a", 1.f);
    ArchiveElement element(QStringLiteral("a"));
    element.set(QStringLiteral("2"));
    EXPECT_TRUE(attribute.deserializeXML(element));
    EXPECT_EQ(*attribute.valueOnLayer(user), 2.f);
    element.set(QStringLiteral("x"));
    EXPECT_FALSE(attribute.deserialize(element));
}

TEST(Archive, NamesOfAnyCharactersComeBack) {
    const QByteArray names[] = {"plain", "font-size", "a b",     "1st",       "-x", "a:b",         "<&>",
                                "",      "_x_",       "_x0041_", "x_x0041_y", "_x", "caf\xc3\xa9", "\xf0\x9f\x98\x80",
                                "tab\t", "xml",       "."};
    Node node(nullptr, "odd root");
    Node other(nullptr, "odd root");
    int value = 0;
    for (const QByteArray& name : names) {
        *new AttributeT<int>(&node, name, 0) = ++value;
        new AttributeT<int>(&other, name, 0);
    }
    Archive::Error error;
    const ArchiveElement element = Archive::read(Archive::write(node), &error);
    ASSERT_FALSE(element.isNull()) << error.text.toStdString();
    EXPECT_EQ(element.name(), QString("odd root"));
    ASSERT_TRUE(other.deserialize(element));
    for (const QByteArray& name : names)
        EXPECT_EQ(other.attribute(name)->asInt(nullptr, user), node.attribute(name)->asInt(nullptr, user))
            << name.constData();
}

TEST(Archive, CharactersThatXmlCannotHoldAreReplaced) {
    Node node(nullptr, "n");
    auto* text = new AttributeT<QString>(&node, "text");
    QString odd = QStringLiteral("a");
    for (ushort unit : {0x0, 0x1, 0xb, 0x1f, 0xd800, 0xdc00, 0xfffe, 0xffff})
        odd += QChar(unit);
    *text = odd + QStringLiteral("z");
    Archive::Error error;
    const ArchiveElement element = Archive::read(Archive::write(node), &error);
    ASSERT_FALSE(element.isNull()) << error.text.toStdString();
    // The low half that follows a high half makes a character with it.
    EXPECT_EQ(element.children().at(0).get(),
              "a" + QString(4, QChar(0xfffd)) + QChar(0xd800) + QChar(0xdc00) + QString(2, QChar(0xfffd)) + "z");
}

TEST(Archive, ReadsElementsWithTextAttributesAndPositions) {
    const ArchiveElement root = Archive::read("<?xml version=\"1.0\"?>\n<!-- c --><a k=\"v\" xml:lang=\"de\">x"
                                              "<b/>y<![CDATA[<z>]]>\n <c>1</c></a>");
    EXPECT_EQ(root.name(), QString("a"));
    EXPECT_EQ(root.get(), QString("xy<z>\n "));
    EXPECT_EQ(root.attribute("k"), QString("v"));
    EXPECT_EQ(root.attribute("xml:lang"), QString("de"));
    ASSERT_EQ(root.childCount(), 2);
    EXPECT_EQ(root.children().at(1).get(), QString("1"));
    EXPECT_EQ(root.line(), 2);
    EXPECT_EQ(root.children().at(1).line(), 3);
}

TEST(Archive, WritesToADevice) {
    QBuffer buffer;
    ASSERT_TRUE(buffer.open(QIODevice::ReadWrite));
    {
        Archive archive(&buffer);
        archive.startElement("root");
        archive.writeAttribute("k", "a\n<b>");
        archive.writeText("text");
        archive.writeElement("leaf", "1");
        EXPECT_FALSE(archive.hasError());
    } // which ends what is open
    buffer.seek(0);
    const ArchiveElement root = Archive::read(buffer);
    EXPECT_EQ(root.attribute("k"), QString("a\n<b>"));
    EXPECT_EQ(root.children().at(0).get(), QString("1"));
}

TEST(Archive, ElementsStandOnLinesOfTheirOwn) {
    Panel panel;
    *panel.opacity = 0.5f;
    EXPECT_EQ(Archive::write(panel.node), QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<panel>\n"
                                                     "<opacity>0.5</opacity>\n<item/>\n<item/>\n</panel>\n"));
}

TEST(Archive, UnbalancedEndsAreIgnored) {
    QByteArray document;
    {
        Archive archive(&document);
        archive.endElement();
        archive.writeElement("root", "");
        archive.endElement();
    }
    EXPECT_EQ(Archive::read(document).name(), QString("root"));
}

TEST(Archive, MalformedDocumentsGiveAnErrorWithItsPlace) {
    const char* const documents[] = {"",
                                     "text",
                                     "<a>",
                                     "<a></b>",
                                     "<a/><b/>",
                                     "<a b=c/>",
                                     "<a>&nothing;</a>",
                                     "<a b='1' b='2'/>",
                                     "<a>\xff\xfe</a>",
                                     "\n\n<a>\n<b></a>",
                                     "<a:b/>"};
    for (const char* document : documents) {
        Archive::Error error;
        EXPECT_TRUE(Archive::read(QByteArray(document), &error).isNull()) << document;
        EXPECT_FALSE(error.text.isEmpty()) << document;
        EXPECT_GE(error.line, 1) << document;
        EXPECT_GE(error.column, 1) << document;
        EXPECT_TRUE(Archive::read(QByteArray(document)).isNull());
    }
    Archive::Error error;
    Archive::read("<a>\n\n<b></c></a>", &error);
    EXPECT_EQ(error.line, 3);
    Archive::read("<a/>", &error);
    EXPECT_TRUE(error.text.isEmpty());
}

TEST(Archive, EntityBombIsRefused) {
    QByteArray document = "<!DOCTYPE a [<!ENTITY e0 \"xxxxxxxxxx\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ";";
        document += "<!ENTITY e" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    document += "]><a>&e11;</a>";
    Archive::Error error;
    EXPECT_TRUE(Archive::read(document, &error).isNull());
    EXPECT_FALSE(error.text.isEmpty());
}

TEST(Archive, NestingIsBounded) {
    const auto nested = [](int depth) {
        return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
    };
    Archive::Error error;
    EXPECT_FALSE(Archive::read(nested(Archive::MaximumDepth), &error).isNull()) << error.text.toStdString();
    EXPECT_TRUE(Archive::read(nested(Archive::MaximumDepth + 1), &error).isNull());
    EXPECT_EQ(error.text, QString("Elements are nested more than 20000 deep"));
}

TEST(Archive, DeepTreeIsWrittenAndReadWithoutDeepRecursion) {
    const auto makeTree = [](int value) {
        auto root = std::make_unique<Node>(nullptr, "n");
        Node* node = root.get();
        for (int i = 1; i < Archive::MaximumDepth - 1; ++i)
            node = new Node(node, "n");
        *new AttributeT<int>(node, "v", 0) = value;
        return std::make_pair(std::move(root), node);
    };
    const auto written = makeTree(7);
    const auto read = makeTree(0);
    const ArchiveElement element = Archive::read(Archive::write(*written.first));
    ASSERT_FALSE(element.isNull());
    EXPECT_TRUE(read.first->deserialize(element));
    EXPECT_EQ(read.second->attribute("v")->asInt(nullptr, user), 7);
}

TEST(Archive, WideNodeIsReadInOrder) {
    Node written(nullptr, "root");
    Node read(nullptr, "root");
    for (int i = 0; i < 10000; ++i) {
        *new AttributeT<int>(new Node(&written, "n"), "v", -1) = i;
        new AttributeT<int>(new Node(&read, "n"), "v", -1);
    }
    EXPECT_TRUE(read.deserialize(Archive::read(Archive::write(written))));
    const QList<Attribute*> nodes = read.attributes();
    for (int i = 0; i < 10000; ++i)
        ASSERT_EQ(nodes[i]->attribute("v")->asInt(nullptr, user), i);
}
