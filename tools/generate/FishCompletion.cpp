#include "Shell.h"

namespace Generate {

using Command::CommandRow;
using Command::OptionRow;

namespace {

/// Text between single quotes, as fish reads it.
QByteArray fishQuoted(QByteArray text) {
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'";
}

QByteArray action(const QList<Argument>& arguments) {
    if (arguments.isEmpty())
        return "";
    switch (arguments.first().kind) {
    case Argument::Kind::File:
        return " -r -F";
    case Argument::Kind::Folder:
        return " -x -a '(__fish_complete_directories)'";
    case Argument::Kind::Words:
        return " -x -a " + fishQuoted(arguments.first().words.join(' '));
    default:
        return " -x";
    }
}

/// The commands that have an option, and those that run them; all of them where every one has it.
QList<QByteArray> commandsOf(const OptionRow& option) {
    QList<QByteArray> names;
    for (const CommandRow& command : Command::commandTable()) {
        if (option.commands & command.bit)
            names.append(command.name);
    }
    return names;
}

QByteArray line(const OptionRow& option) {
    QByteArray text = "complete -c brisko";
    if ((option.commands & Command::AllCommands) != Command::AllCommands)
        text += " -n " + fishQuoted("__fish_seen_subcommand_from " + commandsOf(option).join(' '));
    for (const QByteArray& name : namesOf(option))
        text += name.startsWith("--") ? " -l " + name.mid(2) : " -s " + name.mid(1);
    return text + action(argumentsOf(option)) + " -d " + fishQuoted(option.help) + "\n";
}

} // namespace

QByteArray fishCompletion() {
    QList<QByteArray> names;
    for (const CommandRow& command : Command::commandTable())
        names.append(command.name);
    QByteArray text = "# Completion of brisko for fish.\n\n"
                      "function __brisko_needs_command\n"
                      "    not __fish_seen_subcommand_from " +
                      names.join(' ') + "\nend\n\n";
    for (const CommandRow& command : Command::commandTable()) {
        text += "complete -c brisko -n __brisko_needs_command -f -a " + QByteArray(command.name) + " -d " +
                fishQuoted(command.help) + "\n";
        if (!commandsBelow(command).isEmpty()) {
            const QByteArray below = commandsBelow(command).join(' ');
            text += "complete -c brisko -n " +
                    fishQuoted("__fish_seen_subcommand_from " + QByteArray(command.name) +
                               "; and not __fish_seen_subcommand_from " + below) +
                    " -f -a " + fishQuoted(below) + "\n";
        }
    }
    text += "\n";
    for (const OptionRow& option : Command::optionTable())
        text += line(option);
    return text;
}

} // namespace Generate
