#include "Ondex/ArchiveElement.h"

#include <gtest/gtest.h>

using Ondex::ArchiveElement;

TEST(ArchiveElement, IsNullUntilSomethingIsPutIn) {
    ArchiveElement element;
    EXPECT_TRUE(element.isNull());
    EXPECT_EQ(element.name(), QString());
    EXPECT_EQ(element.get(), QString());
    EXPECT_EQ(element.attribute("a"), QString());
    EXPECT_FALSE(element.hasAttribute("a"));
    EXPECT_TRUE(element.attributes().isEmpty());
    EXPECT_TRUE(element.children().isEmpty());
    EXPECT_EQ(element.childCount(), 0);
    EXPECT_EQ(element.line(), 0);
    EXPECT_TRUE(element.isNull()) << "reading leaves it null";

    ArchiveElement named;
    named.setName("a");
    EXPECT_FALSE(named.isNull());
    ArchiveElement text;
    text.set(QString());
    EXPECT_FALSE(text.isNull());
    ArchiveElement attribute;
    attribute.add("k", "v");
    EXPECT_FALSE(attribute.isNull());
    ArchiveElement parent;
    EXPECT_TRUE(parent.addChild(named));
    EXPECT_FALSE(parent.isNull());
}

TEST(ArchiveElement, KeepsNameTextAndAttributes) {
    ArchiveElement element(QStringLiteral("font"));
    element.set("12px a");
    element.add("b", "1");
    element.add("a", "2");
    element.add("b", "3");
    EXPECT_EQ(element.name(), QString("font"));
    EXPECT_EQ(element.get(), QString("12px a"));
    EXPECT_EQ(element.attribute("b"), QString("3"));
    EXPECT_TRUE(element.hasAttribute("a"));
    EXPECT_EQ(element.attributes(), (QList<QPair<QString, QString>>{{"b", "3"}, {"a", "2"}}));
}

TEST(ArchiveElement, CopiesNameTheSameElement) {
    ArchiveElement element(QStringLiteral("a"));
    ArchiveElement copy = element;
    copy.set("text");
    EXPECT_EQ(element.get(), QString("text"));
    EXPECT_TRUE(copy == element);
    EXPECT_TRUE(copy != ArchiveElement(QStringLiteral("a")));
}

TEST(ArchiveElement, ChildrenKeepTheirOrderAndOneParent) {
    ArchiveElement parent(QStringLiteral("p"));
    ArchiveElement a(QStringLiteral("a"));
    ArchiveElement b(QStringLiteral("b"));
    EXPECT_TRUE(parent.addChild(b));
    EXPECT_TRUE(parent.addChild(a));
    EXPECT_EQ(parent.children(), (QList<ArchiveElement>{b, a}));
    EXPECT_FALSE(parent.addChild(a));
    EXPECT_FALSE(b.addChild(a));
    EXPECT_FALSE(parent.addChild(ArchiveElement()));
    EXPECT_EQ(parent.childCount(), 2);
}

TEST(ArchiveElement, IsNeverPutBelowItself) {
    ArchiveElement top(QStringLiteral("top"));
    ArchiveElement middle(QStringLiteral("middle"));
    ArchiveElement bottom(QStringLiteral("bottom"));
    ASSERT_TRUE(top.addChild(middle));
    ASSERT_TRUE(middle.addChild(bottom));
    EXPECT_FALSE(top.addChild(top));
    EXPECT_FALSE(bottom.addChild(top));
}

TEST(ArchiveElement, ChildOutlivesItsParent) {
    ArchiveElement child(QStringLiteral("child"));
    {
        ArchiveElement parent(QStringLiteral("parent"));
        parent.addChild(child);
    }
    EXPECT_EQ(child.name(), QString("child"));
    ArchiveElement other(QStringLiteral("other"));
    EXPECT_TRUE(other.addChild(child)) << "it has no parent any more";
}

TEST(ArchiveElement, DeepTreeIsFreedWithoutDeepRecursion) {
    ArchiveElement kept;
    {
        ArchiveElement root(QStringLiteral("root"));
        ArchiveElement element = root;
        for (int i = 0; i < 300000; ++i) {
            ArchiveElement child(QStringLiteral("e"));
            ASSERT_TRUE(element.addChild(child));
            element = child;
            if (i == 150000)
                kept = child;
        }
    }
    EXPECT_EQ(kept.childCount(), 1);
}
