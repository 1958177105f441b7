#include "CommandLine.h"

#include "Failure.h"
#include "OptionTable.h"

#include <CLI/CLI.hpp>

#include <map>

namespace Command {

namespace {

const CommandRow* findCommand(const QByteArray& name) {
    for (const CommandRow& row : commandTable()) {
        if (name == row.name)
            return &row;
    }
    return nullptr;
}

/// One CLI11 application, and what its options mean in the table.
class ArgumentReader {
public:
    ArgumentReader(CLI::App& app, unsigned commands) : m_app(app) {
        app.set_help_flag();
        for (const OptionRow* row : optionsOf(commands)) {
            CLI::Option* option = row->argumentCount == 0 ? app.add_flag(row->names) : app.add_option(row->names);
            if (row->argumentCount > 0)
                option->type_size(row->argumentCount)->expected(1)->allow_extra_args(false);
            option->take_all();
            m_rows[option] = row;
        }
    }

    /// Has the arguments that are no options handed to @p take, at most @p count of them; 0: any number.
    void addPositionals(int count, void (*take)(Options&, const QByteArray&)) {
        m_takePositional = take;
        for (int i = 0; i < std::max(count, 1); ++i) {
            CLI::Option* option = m_app.add_option("argument" + std::to_string(i));
            option->type_size(1)->expected(1)->take_all()->allow_extra_args(count == 0);
            m_positionals.push_back(option);
        }
    }

    /// Applies what was given, in its order on the command line.
    void apply(Options& options) const {
        std::map<const CLI::Option*, std::size_t> used;
        for (const CLI::Option* option : m_app.parse_order()) {
            const std::size_t first = used[option]++;
            const auto row = m_rows.find(option);
            if (row == m_rows.end()) {
                m_takePositional(options, QByteArray::fromStdString(option->results().at(first)));
                continue;
            }
            const std::size_t size = std::size_t(std::max(row->second->argumentCount, 1));
            if ((first + 1) % size == 0)
                row->second->apply(options, results(*option, first + 1 - size, size));
        }
    }

private:
    static std::vector<QByteArray> results(const CLI::Option& option, std::size_t first, std::size_t count) {
        std::vector<QByteArray> texts;
        for (std::size_t i = first; i < first + count; ++i)
            texts.push_back(QByteArray::fromStdString(option.results().at(i)));
        return texts;
    }

    CLI::App& m_app;
    std::map<const CLI::Option*, const OptionRow*> m_rows;
    std::vector<CLI::Option*> m_positionals;
    void (*m_takePositional)(Options&, const QByteArray&) = nullptr;
};

void takeArgument(Options& options, const QByteArray& argument) {
    options.arguments.push_back(argument);
}

void takeSheet(Options& options, const QByteArray& argument) {
    options.sheets.push_back({argument, options.origin});
}

// After the scene, "-s a.css b.css" goes on with further sheets.
void takeSceneThenSheets(Options& options, const QByteArray& argument) {
    if (options.arguments.empty() || options.sheets.empty())
        takeArgument(options, argument);
    else
        takeSheet(options, argument);
}

// "SCENE -s a.css b.css SELECTOR": what follows a sheet is a further one, but the last of all, as many as are given
// here, are none.
template <std::size_t last>
void takeSceneSheetsAndMore(Options& options, const QByteArray& argument) {
    takeArgument(options, argument);
    if (options.arguments.size() <= 1 + last || options.sheets.empty())
        return;
    takeSheet(options, options.arguments[1]);
    options.arguments.erase(options.arguments.begin() + 1);
}

/// @param most  how many arguments there can be
void addPositionals(ArgumentReader& reader, CommandBit command, int most) {
    switch (command) {
    case QueryCommand:
        // One by one: in a list, CLI11 would take a selector in brackets for a list of its own.
        return reader.addPositionals(most, takeSceneSheetsAndMore<1>);
    case ExplainCommand:
        return reader.addPositionals(most, takeSceneSheetsAndMore<2>);
    case StyleCommand:
    case RenderCommand:
    case InspectCommand:
    case ViewCommand:
        return reader.addPositionals(0, takeSceneThenSheets);
    default:
        return reader.addPositionals(0, takeSheet);
    }
}

/// What is wrong with a command that lays sheets over one scene.
QByteArray complaintOfScene(const Options& options) {
    if (options.arguments.size() != 1)
        return options.arguments.empty() ? "no scene given" : "more than one scene given";
    return options.sheets.empty() ? "no sheet given; use -s FILE" : "";
}

QByteArray complaintOfPicture(const Options& options) {
    const QByteArray name = options.output.toLower();
    if (name.isEmpty())
        return "no output given; use -o FILE.png or -o FILE.svg";
    return name.endsWith(".png") || name.endsWith(".svg") ? ""
                                                          : "'" + options.output + "' ends neither in .png nor .svg";
}

QByteArray complaintOfExplain(const Options& options) {
    const bool isPropertyNeeded = options.whyNot.empty();
    if (options.arguments.size() == 3 && options.arguments[2].isEmpty())
        return "the property has no name";
    if (options.arguments.size() > 3 || options.arguments.size() < (isPropertyNeeded ? 3 : 2))
        return "give a scene, a selector and a property, or a scene, a selector and --why-not SELECTOR";
    return options.sheets.empty() ? "no sheet given; use -s FILE" : "";
}

QByteArray complaintOfPage(const Options& options) {
    if (options.output.isEmpty())
        return "no output given; use -o FILE.html";
    return options.output.toLower().endsWith(".html") ? "" : "'" + options.output + "' does not end in .html";
}

int partsOfParse(const Options& options) {
    return int(options.sheets.size()) + options.selectorsText.has_value() + options.simpleSelectorText.has_value() +
           options.valueText.has_value();
}

/// What is wrong with the number of arguments; empty where nothing is.
QByteArray complaint(const Options& options, const CommandRow& command) {
    if (options.format == OutputFormat::Sarif && command.bit != CheckCommand)
        return "--format sarif is for check only";
    switch (command.bit) {
    case CheckCommand:
        return options.sheets.empty() ? "no sheet given" : "";
    case ParseCommand:
        return partsOfParse(options) != 1 ? "give one sheet, or -, or one of --selectors, --simple-selector, --value"
                                          : "";
    case StyleCommand:
    case ViewCommand:
        return complaintOfScene(options);
    case RenderCommand:
        return complaintOfScene(options) + (complaintOfScene(options).isEmpty() ? complaintOfPicture(options) : "");
    case InspectCommand:
        return complaintOfScene(options) + (complaintOfScene(options).isEmpty() ? complaintOfPage(options) : "");
    case ExplainCommand:
        return complaintOfExplain(options);
    default:
        return options.arguments.size() != 2 ? "give a scene and a selector" : "";
    }
}

QByteArray usageLine(const CommandRow& row) {
    return QByteArray("brisko ") + row.name + " " + row.usage;
}

QByteArray optionLine(const OptionRow& row) {
    const QByteArray left = "  " + QByteArray(row.names).replace(",", ", ") + " " + row.arguments;
    return left.leftJustified(30) + " " + row.help + "\n";
}

/// @param command  null: of all commands
QByteArray optionLines(const CommandRow* command) {
    QByteArray text;
    if (command) {
        for (const OptionRow* row : optionsOf(command->bit))
            text += optionLine(*row);
    } else {
        for (const OptionRow& row : optionTable())
            text += optionLine(row);
    }
    return text;
}

} // namespace

QByteArray helpText(const QByteArray& command) {
    QByteArray text;
    const CommandRow* only = findCommand(command);
    if (only) {
        text = "Usage: " + usageLine(*only) + " [OPTION]...\n";
        if (*only->otherUsage)
            text += QByteArray("       brisko ") + only->name + " " + only->otherUsage + "\n";
        text += "\n" + QByteArray(only->help) + "\n";
    } else {
        text = "Usage: brisko COMMAND ...\n\nCommands:\n";
        for (const CommandRow& row : commandTable())
            text += "  " + usageLine(row).leftJustified(44) + " " + row.help + "\n";
    }
    if (only && only->bit == WatchCommand)
        text += "Options of that command may follow; a signal (Ctrl+C) ends it.\n";
    text += "\nOptions:\n" + optionLines(only) + "\nExit:";
    for (const ExitRow& row : exitTable())
        text += (row.code == 0 ? " " : "; ") + QByteArray::number(row.code) + " " + row.meaning;
    text += ".\n";
    return text;
}

namespace {

bool canBeWatched(const QByteArray& command) {
    static const QList<QByteArray> names = {"style", "render", "inspect", "check"};
    return names.contains(command);
}

/// Reads arguments into options that others were read into before.
void readInto(Options& options, const std::vector<QByteArray>& arguments);

/// Reads the command that stands behind "watch".
void readWatched(Options& options, const CLI::App& watch, const CommandRow& row) {
    std::vector<QByteArray> arguments;
    for (const std::string& argument : watch.remaining())
        arguments.push_back(QByteArray::fromStdString(argument));
    if (arguments.empty())
        throw Failure::because("watch: no command given; usage: " + usageLine(row));
    options.isWatched = true;
    options.command.clear();
    readInto(options, arguments);
}

void readInto(Options& options, const std::vector<QByteArray>& arguments) {
    CLI::App app;
    app.name("brisko");
    app.require_subcommand(0, 1);
    ArgumentReader common(app, AllCommands);
    std::map<const CLI::App*, ArgumentReader> readers;
    for (const CommandRow& row : commandTable()) {
        CLI::App* subcommand = app.add_subcommand(row.name, row.help);
        const auto reader = readers.emplace(subcommand, ArgumentReader(*subcommand, row.bit)).first;
        if (row.bit == WatchCommand)
            subcommand->prefix_command();
        else
            addPositionals(reader->second, row.bit, int(arguments.size()));
    }
    std::vector<std::string> reversed; // as CLI11 wants them
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        reversed.push_back(argument->toStdString());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& error) {
        throw Failure::because(error.what());
    }
    common.apply(options);
    for (const CLI::App* subcommand : app.get_subcommands()) {
        options.command = QByteArray::fromStdString(subcommand->get_name());
        readers.at(subcommand).apply(options);
    }
    if (options.help || options.version)
        return;
    const CommandRow* command = findCommand(options.command);
    if (!command)
        throw Failure::because("no command given; see brisko --help");
    if (options.isWatched && !canBeWatched(options.command))
        throw Failure::because("watch: '" + options.command +
                               "' cannot be watched; usage: " + usageLine(*findCommand("watch")));
    if (command->bit == WatchCommand)
        return readWatched(options, *app.get_subcommand(command->name), *command);
    const QByteArray wrong = complaint(options, *command);
    if (!wrong.isEmpty())
        throw Failure::because(options.command + ": " + wrong + "; usage: " + usageLine(*command));
}

} // namespace

Options readCommandLine(const std::vector<QByteArray>& arguments) {
    Options options;
    readInto(options, arguments);
    return options;
}

} // namespace Command
