#include "Brisko/AttributeBackground.h"
#include "Brisko/AttributeBorder.h"
#include "Brisko/CSSBoxModel.h"
#include "Brisko/CSSParser.h"
#include "Brisko/LazyAttributeManager.h"
#include "Gorvel/Trace.h"
#include "Hexley/Mipmap.h"
#include "Ondex/TransitionManager.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using Brisko::CSSBoxModel;
using Brisko::CSSParser;
using Brisko::Style;
using Brisko::StyleSheet;

constexpr Brisko::SimpleSelector::Origin author = Brisko::SimpleSelector::AuthorOrigin;
constexpr int rounds = 20;

/// Runs that many threads, each with its number, at the same time.
void runThreads(int count, const std::function<void(int)>& work) {
    std::atomic<int> waiting{count};
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) // so that they begin together
                std::this_thread::yield();
            work(i);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

/// A scene with panels and buttons; what a thread owns alone.
class Scene {
public:
    Scene() : root(std::make_unique<CSSBoxModel>()) {
        root->setCSSType("scene");
        for (int i = 0; i < 5; ++i) {
            auto* panel = new CSSBoxModel;
            panel->setCSSType("panel");
            root->addAttribute(panel);
            for (int j = 0; j < 5; ++j) {
                auto* button = new CSSBoxModel;
                button->setCSSType("button");
                button->setCSSClasses(j % 2 == 0 ? "even" : "odd");
                panel->addAttribute(button);
                buttons.push_back(button);
            }
        }
    }

    std::unique_ptr<CSSBoxModel> root;
    std::vector<CSSBoxModel*> buttons;
};

QByteArray sheetText(int number) {
    const QByteArray n = QByteArray::number(number);
    return "panel button { width: " + n + "px; margin: 1px " + n + "px; border: 2px solid rgb(1, 2, 3); background: #" +
           n + "00 no-repeat; lazy: calc(2px * " + n + ") } .odd { height: 7px } button.own" + n +
           ":hover { height: 8px !important; transition: height 1s } @media print { * { width: 0 } }"
           "] broken { x: url(none.png) } a + b { x: 1 }";
}

/// Has "lazy" made as a number while it lives.
class LazyNumber {
    Brisko::LazyAttributeManager::Registrant m_registrant{
        "lazy", [](Ondex::Node* node, const QByteArray& name) -> Ondex::Attribute* {
            return new Ondex::AttributeT<float>(node, name);
        }};
};

/// Counts the messages of all threads while it lives.
class MessageCount {
public:
    MessageCount() {
        m_previous = Gorvel::Trace::setSink([this](Gorvel::Trace::Level, const QByteArray&) { ++count; });
    }
    ~MessageCount() { Gorvel::Trace::setSink(m_previous); }
    MessageCount(const MessageCount&) = delete;
    MessageCount& operator=(const MessageCount&) = delete;

    std::atomic<int> count{0};

private:
    Gorvel::Trace::Sink m_previous;
};

/// Styles a scene, changes it in every way, and checks what came of it.
void useScene(const std::shared_ptr<StyleSheet>& sheet, int number) {
    Scene scene;
    CSSBoxModel& button = *scene.buttons[1];
    scene.root->setStyle(Style(sheet));
    EXPECT_EQ(button.width(), float(number));
    EXPECT_EQ(button.height(), 7.f);
    EXPECT_EQ(button.attribute("lazy")->asFloat(nullptr, Ondex::Attribute::EffectiveLayer), 2.f * float(number));
    button.addCSSClass("own" + QString::number(number));
    button.setPseudoClass("hover", true);
    button.setPseudoClass("hover", false);
    button.setPseudoClass("hover", true);
    Ondex::TransitionManager::advance(0.5f);
    Ondex::TransitionManager::finishAll();
    EXPECT_EQ(button.height(), 8.f);
    button.setCSSId("own");
    delete scene.buttons[2];
    scene.root->setStyle(Style());
}

TEST(Threads, ParseWithAParserEachAndStyleSeparateTrees) {
    const LazyNumber lazy;
    const MessageCount messages;
    constexpr int threads = 2;
    runThreads(threads, [](int thread) {
        for (int round = 1; round <= rounds; ++round) {
            const int number = 10 * thread + round % 9 + 1;
            auto sheet = std::make_shared<StyleSheet>();
            CSSParser parser;
            parser.setDpi(float(90 + thread));
            EXPECT_TRUE(parser.parseString(*sheet, sheetText(number), nullptr, author));
            useScene(sheet, number);
        }
    });
    EXPECT_EQ(messages.count % (threads * rounds), 0);
    EXPECT_GT(messages.count, 0);
}

TEST(Threads, StyleSeparateTreesFromOneSheet) {
    const LazyNumber lazy;
    const MessageCount messages;
    for (int round = 0; round < rounds; ++round) {
        auto sheet = std::make_shared<StyleSheet>();
        CSSParser().parseString(*sheet, sheetText(4), nullptr, author);
        runThreads(2, [&sheet](int) { useScene(sheet, 4); });
    }
}

TEST(Threads, ReadFilesAndTheirImports) {
    const QTemporaryDir folder;
    const auto write = [&folder](const char* name, const QByteArray& text) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("main.css", "@import 'sub.css'; @import 'none.css'; @import 'main.css'; a { x: 1in }");
    write("sub.css", "b { y: 2pt }");
    const MessageCount messages;
    runThreads(2, [&folder](int) {
        for (int round = 0; round < rounds; ++round) {
            StyleSheet sheet;
            QStringList files;
            CSSParser parser;
            parser.setImportFilter([](const QString& path) { return !path.endsWith("none.css"); });
            EXPECT_EQ(parser.parseSheet(sheet, folder.filePath("main.css"), &files, author), CSSParser::NoError);
            EXPECT_EQ(sheet.rules().size(), 2u);
            EXPECT_EQ(files.size(), 2);
        }
    });
    EXPECT_EQ(messages.count, 2 * rounds * 3); // one import is refused, the other leads back: two messages
}

TEST(Threads, ParseSelectorsAndValues) {
    runThreads(2, [](int thread) {
        for (int round = 0; round < rounds * 10; ++round) {
            const QByteArray name = "name" + QByteArray::number(round * 2 + thread);
            EXPECT_EQ(CSSParser::parseSelectors(QString("%1 > .%1:%1, #%1").arg(QString(name))).size(), 2);
            EXPECT_EQ(CSSParser::parseValue("calc(1px + 50%) rgb(1, 2, 3) '" + name + "'").size(), 3);
            EXPECT_EQ(CSSParser::parseSimpleSelector(name).cssType(), name);
        }
    });
}

TEST(Threads, InternTheSameAndOtherNames) {
    runThreads(4, [](int thread) {
        std::vector<std::unique_ptr<Brisko::Styleable>> nodes;
        for (int i = 0; i < 3000; ++i) { // enough for names to be forgotten meanwhile
            nodes.push_back(std::make_unique<Brisko::Styleable>("t" + QByteArray::number(i * 4 + thread)));
            nodes.back()->addCSSClass("shared" + QString::number(i));
            if (nodes.size() > 100)
                nodes.clear();
        }
    });
}

TEST(Threads, ShareImages) {
    const QTemporaryDir folder;
    for (const char* name : {"a.png", "b.png"}) {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(folder.filePath(name)));
    }
    const MessageCount messages;
    Hexley::Mipmap::setSearchPaths({folder.path()});
    runThreads(2, [](int) {
        for (int round = 0; round < rounds; ++round) {
            const auto first = Hexley::Mipmap::acquire("a.png", false);
            const auto second = Hexley::Mipmap::acquire("b.png", round % 2 == 0);
            ASSERT_TRUE(first && second);
            EXPECT_EQ(first->image().pixel(3, 3), second->image().pixel(3, 3));
            EXPECT_EQ(Hexley::Mipmap::acquire("none.png", false), nullptr);
        }
    });
    Hexley::Mipmap::setSearchPaths({});
    EXPECT_EQ(messages.count, 1); // reported once
}

TEST(Threads, ReplaceTheSinkWhileOthersSendMessages) {
    const MessageCount messages;
    const Gorvel::Trace::Sink sink = Gorvel::Trace::setSink([](Gorvel::Trace::Level, const QByteArray&) {});
    runThreads(3, [&sink](int thread) {
        for (int round = 0; round < rounds * 10; ++round) {
            if (thread == 0)
                Gorvel::Trace::setSink(sink);
            Gorvel::Trace::warning("%d of %d", round, thread);
            Gorvel::Trace::setDebugEnabled(round % 2 == 0);
            Gorvel::Trace::debug("%d", round);
        }
    });
    Gorvel::Trace::setDebugEnabled(false);
    EXPECT_GT(messages.count, 0);
}

TEST(Threads, HaveTransitionsOfTheirOwn) {
    runThreads(2, [](int) {
        for (int round = 0; round < rounds; ++round) {
            Ondex::Node node(nullptr, "node");
            auto* width = new Ondex::AttributeT<float>(&node, "width", 0.f);
            width->setTransitionAnim(2.f, 0.f);
            *width = 100.f;
            EXPECT_EQ(Ondex::TransitionManager::runningCount(), 1);
            Ondex::TransitionManager::advance(1.f);
            EXPECT_EQ(width->value(), 50.f);
        }
    });
}

} // namespace
