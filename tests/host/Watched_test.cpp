#include "Ondex/Watched.h"

#include "Ondex/Node.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>

using Ondex::Attribute;
using Ondex::Node;
using Ondex::Watched;

namespace {

/// A node that writes down what it is told.
class Panel : public Node {
public:
    Panel() : Node(nullptr, "panel"), title(this, "title"), width(this, "width", 1.f) {}

    Watched<QString, Panel> title;
    Watched<float, Panel> width;
    QStringList log;
    std::function<void()> onTold = [] {};

private:
    template <typename T, typename Watcher>
    friend class Ondex::Watched;
    static constexpr int WatcherRole = 2;
    void watchedChanged(Attribute& attribute) {
        log.append(attribute.name());
        onTold();
    }
};

} // namespace

TEST(Watched, TellsItsWatcherOfEveryChange) {
    Panel panel;
    panel.width = 2.f;
    EXPECT_EQ(panel.log, QStringList());
    panel.title.setWatcher(panel);
    panel.width.setWatcher(panel);
    panel.width = 3.f;
    panel.title = QStringLiteral("a");
    panel.title = QStringLiteral("a"); // no change
    EXPECT_EQ(panel.log, (QStringList{"width", "title"}));
}

TEST(Watched, TellsItInTheOrderOfRoles) {
    Panel panel;
    panel.width.addListener([&panel] { panel.log.append("before"); }, 2);
    panel.width.setWatcher(panel);
    panel.title.setWatcher(panel);
    for (Attribute* attribute : {static_cast<Attribute*>(&panel.width), static_cast<Attribute*>(&panel.title)}) {
        for (const int role : {3, 2, 1})
            attribute->addListener([&panel, role] { panel.log.append(QString::number(role)); }, role);
    }
    panel.width = 2.f;
    EXPECT_EQ(panel.log, (QStringList{"1", "before", "width", "2", "3"}));
    panel.log.clear();
    panel.title = QStringLiteral("a");
    EXPECT_EQ(panel.log, (QStringList{"1", "title", "2", "3"}));
}

TEST(Watched, MayAddListenersWhereTheyStandBehindAllOthers) {
    Panel panel;
    panel.title.setWatcher(panel);
    panel.title.addListener([&panel] { panel.log.append("2"); }, 2);
    panel.title.addListener([&panel] { panel.log.append("3"); }, 3);
    panel.onTold = [&panel] { panel.title.addListener([&panel] { panel.log.append("new"); }, 3); };
    panel.title = QStringLiteral("a");
    EXPECT_EQ(panel.log, (QStringList{"title", "2", "3"})) << "those that were there are called, the new one is not";
    panel.log.clear();
    panel.onTold = [] {};
    panel.title = QStringLiteral("b");
    EXPECT_EQ(panel.log, (QStringList{"title", "2", "3", "new"}));
}

TEST(Watched, HasNoOwner) {
    Panel panel;
    panel.title.setWatcher(panel);
    EXPECT_EQ(panel.title.ownerShorthand(), nullptr);
    panel.removeAttribute(&panel.title);
    panel.title = QStringLiteral("a");
    EXPECT_EQ(panel.log, QStringList{"title"}) << "also outside of the node";
}
