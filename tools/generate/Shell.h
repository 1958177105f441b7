#pragma once

#include "brisko/OptionTable.h"

#include <QByteArray>
#include <QList>

namespace Generate {

/// One argument of an option, and what a shell can offer for it. Both follow from its name in the table.
struct Argument {
    enum class Kind {
        Text,   ///< nothing can be offered
        File,   ///< "FILE"
        Folder, ///< "DIR"
        Words   ///< "text|json"
    };
    QByteArray name;
    Kind kind;
    QList<QByteArray> words;
};

/// The arguments of an option in their order; none of a flag.
QList<Argument> argumentsOf(const Command::OptionRow& option);
/// The names of an option: "-s" and "--sheet".
QList<QByteArray> namesOf(const Command::OptionRow& option);

/// The names of the commands that a command may run, which its usage begins with: "(style|check) ...". Mostly none.
QList<QByteArray> commandsBelow(const Command::CommandRow& command);

/// The options of a command; those that every command has where it is null.
QList<const Command::OptionRow*> optionsOf(const Command::CommandRow* command);

/// Text between single quotes, as POSIX shells and zsh read it.
QByteArray quoted(const QByteArray& text);

// The whole file of each, ready to be installed.
QByteArray bashCompletion();
QByteArray zshCompletion();
QByteArray fishCompletion();

} // namespace Generate
