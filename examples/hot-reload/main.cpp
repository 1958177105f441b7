// Keeps a small scene styled by the sheets on its command line, and prints what every change of theirs does to it.
//
//     hot-reload panel.css             # until it is interrupted
//     hot-reload --reloads 2 panel.css # until the sheets were read twice

#include <Brisko/Brisko.h>
#include <Gorvel/StringUtils.h>
#include <Ondex/AttributeT.h>

#include <QCoreApplication>

#include <cstdio>

using Brisko::Styleable;
using Brisko::StyleSheetWatcher;

namespace {

/// A node with a width, as a child of another one, which owns it.
Styleable* addButton(Styleable& panel, const QString& id) {
    auto* button = new Styleable("button");
    new Ondex::AttributeT<float>(button, "width", 80.f);
    button->setCSSId(id);
    panel.addAttribute(button);
    return button;
}

void print(const Styleable& button) {
    const Ondex::Attribute* width = button.attribute("width");
    std::printf("  %s: width %g from %s\n", qPrintable(button.simpleSelector(true)),
                double(width->asFloat(nullptr, Ondex::Attribute::EffectiveLayer)),
                qPrintable(button.attributeSource("width")));
}

void print(const StyleSheetWatcher::Report& report) {
    for (const Gorvel::Trace::Message& message : report.messages)
        std::printf("  %s\n", Gorvel::StringUtils::printable(message.text).constData());
    if (report.result == Brisko::CSSParser::OpenError) {
        std::printf("cannot read %s: the sheets before stay\n", qPrintable(report.unreadable.join(", ")));
    } else {
        std::printf("%d files, %d nodes changed\n", int(report.files.size()), int(report.changedNodes.size()));
        for (const Styleable* node : report.changedNodes)
            print(*node);
    }
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    int reloadsLeft = -1;
    if (arguments.size() > 1 && arguments[0] == "--reloads") {
        reloadsLeft = arguments[1].toInt();
        arguments = arguments.mid(2);
    }
    if (arguments.isEmpty()) {
        std::fputs("usage: hot-reload [--reloads N] SHEET...\n", stderr);
        return 2;
    }

    Styleable panel("panel");
    addButton(panel, "play");
    addButton(panel, "stop");

    std::vector<StyleSheetWatcher::Source> sources;
    for (const QString& path : arguments)
        sources.push_back({path});
    StyleSheetWatcher watcher(sources);
    watcher.setHandler([&](const StyleSheetWatcher::Report& report) {
        print(report);
        if (--reloadsLeft == 0)
            QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    watcher.addRoot(panel);
    watcher.reload();
    return application.exec();
}
