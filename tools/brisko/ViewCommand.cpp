#include "Commands.h"
#include "Diagnostics.h"
#include "DisplaySession.h"
#include "Signals.h"
#include "ViewWindow.h"

#include <ostream>

namespace Command {

namespace {

void print(Console& console, const Options& options, const std::vector<Gorvel::Trace::Message>& messages) {
    std::vector<Message> lines;
    for (const Gorvel::Trace::Message& message : messages)
        lines.push_back({message.level, message.text, QByteArray()});
    printDiagnostics(console.err, lines, console.colors(options.color, console.errIsTerminal));
    console.err.flush();
}

} // namespace

ExitCode runView(const Options& options, Console& console, MessageLog&) {
    const DisplaySession session;
    const Signals interrupts;
    std::function<void(const LiveScene::Report&)> react;
    LiveScene scene(options, [&react](const LiveScene::Report& report) { react(report); });
    ViewState state(scene);
    ViewWindow window(scene, state, options);
    react = [&](const LiveScene::Report& report) {
        print(console, options, report.messages);
        state.sceneChanged(report.isOtherScene);
        window.update();
    };
    print(console, options, scene.messages());
    window.show();
    QGuiApplication::exec();
    return Done;
}

} // namespace Command
