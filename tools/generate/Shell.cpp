#include "Shell.h"

namespace Generate {

using Command::CommandRow;
using Command::OptionRow;

namespace {

Argument argumentOf(const QByteArray& name) {
    if (name == "FILE")
        return {name, Argument::Kind::File, {}};
    if (name == "DIR")
        return {name, Argument::Kind::Folder, {}};
    if (name.contains('|'))
        return {name, Argument::Kind::Words, name.split('|')};
    return {name, Argument::Kind::Text, {}};
}

} // namespace

QList<Argument> argumentsOf(const OptionRow& option) {
    QList<Argument> arguments;
    for (const QByteArray& name : QByteArray(option.arguments).split(' ')) {
        if (!name.isEmpty())
            arguments.append(argumentOf(name));
    }
    return arguments;
}

QList<QByteArray> namesOf(const OptionRow& option) {
    return QByteArray(option.names).split(',');
}

QList<QByteArray> commandsBelow(const CommandRow& command) {
    const QByteArray usage = command.usage;
    return usage.startsWith('(') ? usage.mid(1, usage.indexOf(')') - 1).split('|') : QList<QByteArray>();
}

QList<const OptionRow*> optionsOf(const CommandRow* command) {
    const auto options = Command::optionsOf(command ? unsigned(command->bit) : unsigned(Command::AllCommands));
    return QList<const OptionRow*>(options.begin(), options.end());
}

QByteArray quoted(const QByteArray& text) {
    return "'" + QByteArray(text).replace("'", "'\\''") + "'";
}

} // namespace Generate
