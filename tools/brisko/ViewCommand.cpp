#include "Commands.h"
#include "Diagnostics.h"
#include "DisplaySession.h"
#include "Signals.h"
#include "ValueJson.h"
#include "ViewWindow.h"

#include <ostream>

namespace Command {

namespace {

/// What is said about the scene while its window is shown: in text form at once, in JSON at the end.
class Narration {
public:
    Narration(const Options& options, Console& console) : m_options(options), m_console(console) {}

    void add(const std::vector<Gorvel::Trace::Message>& messages) {
        std::vector<Message> lines;
        for (const Gorvel::Trace::Message& message : messages)
            lines.push_back({message.level, message.text, QByteArray()});
        if (m_options.format == OutputFormat::Json) {
            m_messages.insert(m_messages.end(), lines.begin(), lines.end());
            return;
        }
        printDiagnostics(m_console.err, lines, m_console.colors(m_options.color, m_console.errIsTerminal));
        m_console.err.flush();
    }

    /// @param files  that the sheets were read from last
    void end(const QStringList& files) {
        if (m_options.format != OutputFormat::Json)
            return;
        JsonWriter json(m_console.out);
        json.beginObject();
        writeFilesAndMessages(json, files, m_messages);
        json.endObject();
        m_console.out << '\n';
    }

private:
    const Options& m_options;
    Console& m_console;
    std::vector<Message> m_messages;
};

} // namespace

ExitCode runView(const Options& options, Console& console, MessageLog&) {
    const DisplaySession session;
    const Signals interrupts;
    Narration narration(options, console);
    std::function<void(const LiveScene::Report&)> react;
    LiveScene scene(options, [&react](const LiveScene::Report& report) { react(report); });
    ViewState state(scene);
    ViewWindow window(scene, state, options);
    react = [&](const LiveScene::Report& report) {
        narration.add(report.messages);
        state.sceneChanged(report.isOtherScene);
        window.update();
    };
    narration.add(scene.messages());
    window.show();
    QGuiApplication::exec();
    narration.end(scene.files());
    return Done;
}

} // namespace Command
