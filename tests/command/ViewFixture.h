#pragma once

#include "brisko/CommandLine.h"
#include "brisko/LiveScene.h"
#include "command/CommandRun.h"
#include "support/EventLoop.h"
#include "support/TraceGuard.h"

#include <QPointF>

namespace Testing {

/// The scene of `brisko view`, without a window.
class ViewTest : public CommandTest {
protected:
    /// Writes "scene.xml" and "sheet.css" and reads them.
    void open(const std::string& scene, const std::string& sheet, const std::vector<std::string>& more = {}) {
        std::vector<QByteArray> arguments = {"view", QByteArray::fromStdString(write("scene.xml", scene)), "-s",
                                             QByteArray::fromStdString(write("sheet.css", sheet))};
        for (const std::string& argument : more)
            arguments.push_back(QByteArray::fromStdString(argument));
        m_options = Command::readCommandLine(arguments);
        m_scene = std::make_unique<Command::LiveScene>(
            m_options, [this](const Command::LiveScene::Report& report) { m_reports.push_back(report); });
    }
    bool waitForReports(std::size_t count) {
        return m_loop.waitFor([&] { return m_reports.size() >= count; });
    }
    /// The first node of that id.
    Brisko::Styleable* node(const QString& id) const { return find(m_scene->root(), id); }
    /// The pseudo-classes that are on, blank-separated.
    std::string states(const QString& id) const {
        QStringList names;
        const Brisko::Styleable* of = node(id);
        for (const QByteArray& name : of->pseudoClasses()) {
            if (of->pseudoClass(name))
                names.append(name);
        }
        names.sort();
        return names.join(' ').toStdString();
    }

    TraceGuard m_trace;
    EventLoop m_loop;
    Command::Options m_options;
    std::vector<Command::LiveScene::Report> m_reports;
    std::unique_ptr<Command::LiveScene> m_scene;

private:
    static Brisko::Styleable* find(Brisko::Styleable& at, const QString& id) {
        if (at.cssId() == id)
            return &at;
        for (Brisko::Styleable* child : at.children()) {
            if (Brisko::Styleable* found = find(*child, id))
                return found;
        }
        return nullptr;
    }
};

} // namespace Testing
