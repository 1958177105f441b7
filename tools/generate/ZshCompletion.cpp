#include "Shell.h"

namespace Generate {

using Command::CommandRow;
using Command::OptionRow;

namespace {

constexpr char head[] = "#compdef brisko\n"
                        "# Completion of brisko for zsh.\n"
                        "\n"
                        "_brisko() {\n"
                        "    local curcontext=$curcontext state line ret=1\n"
                        "    local -a commands\n"
                        "    typeset -A opt_args\n";

/// Text between brackets, or between colons.
QByteArray escaped(const QByteArray& text) {
    QByteArray result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\')
            result += '\\';
        result += c;
    }
    return result;
}

QByteArray action(const Argument& argument) {
    switch (argument.kind) {
    case Argument::Kind::File:
        return "_files";
    case Argument::Kind::Folder:
        return "_files -/";
    case Argument::Kind::Words:
        return "(" + argument.words.join(' ') + ")";
    default:
        return " ";
    }
}

/// A line of _arguments for each name of an option. Each may be repeated.
QByteArray optspecs(const OptionRow& row, const QByteArray& indent) {
    QByteArray text;
    const QList<Argument> arguments = argumentsOf(row);
    for (const QByteArray& name : namesOf(row)) {
        QByteArray optspec = "*" + name;
        if (!arguments.isEmpty())
            optspec += name.startsWith("--") ? "=" : "+";
        optspec += "[" + escaped(row.help) + "]";
        for (const Argument& argument : arguments)
            optspec += ":" + escaped(argument.name) + ":" + action(argument);
        text += indent + quoted(optspec) + " \\\n";
    }
    return text;
}

QByteArray optspecs(const QList<const OptionRow*>& rows, const QByteArray& indent) {
    QByteArray text;
    for (const OptionRow* row : rows)
        text += optspecs(*row, indent);
    return text;
}

/// What a command takes. One that runs others has the options of both.
QByteArray commandCase(const CommandRow& command) {
    const QByteArray indent(20, ' ');
    QByteArray text = "                " + QByteArray(command.name) + ")\n";
    if (commandsBelow(command).isEmpty()) {
        text += "                    _arguments \\\n" + optspecs(optionsOf(&command), indent + "    ");
        return text + indent + "    '*:file:_files' && ret=0\n" + indent + ";;\n";
    }
    text += indent + "if (( CURRENT == 2 )); then\n" + indent + "    compadd " + commandsBelow(command).join(' ') +
            " && ret=0\n" + indent + "else\n" + indent + "    shift words\n" + indent + "    (( CURRENT-- ))\n" +
            indent + "    _brisko_command && ret=0\n" + indent + "fi\n" + indent + ";;\n";
    return text;
}

} // namespace

QByteArray zshCompletion() {
    QByteArray text = head;
    text += "    commands=(\n";
    for (const CommandRow& command : Command::commandTable())
        text += "        " + quoted(QByteArray(command.name) + ":" + escaped(command.help)) + "\n";
    text += "    )\n"
            "    _arguments -C -A '-*' \\\n" + // options behind the command are its own
            optspecs(optionsOf(nullptr), "        ") +
            "        '1:command:->command' \\\n"
            "        '*::argument:->argument' && ret=0\n"
            "    case $state in\n"
            "        command) _describe -t commands command commands && ret=0 ;;\n"
            "        argument) _brisko_command && ret=0 ;;\n"
            "    esac\n"
            "    return ret\n"
            "}\n"
            "\n"
            "_brisko_command() {\n"
            "    local ret=1\n"
            "    case $words[1] in\n";
    for (const CommandRow& command : Command::commandTable())
        text += commandCase(command);
    return text + "    esac\n"
                  "    return ret\n"
                  "}\n"
                  "\n"
                  "_brisko \"$@\"\n";
}

} // namespace Generate
