#include "Shell.h"

#include <algorithm>

namespace Generate {

using Command::CommandRow;
using Command::OptionRow;

namespace {

constexpr char head[] = R"sh(# Completion of brisko for bash.

_brisko_files() { # KIND: -f for files, -d for folders
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$cur")
}

_brisko_words() { # WORDS
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

)sh";

// "=" is a word of its own to bash.
constexpr char body[] = R"sh(
_brisko() {
    local cur=${COMP_WORDS[COMP_CWORD]} before=$((COMP_CWORD - 1)) earlier='' command='' outer='' previous='' i
    COMPREPLY=()
    if [ "$cur" = = ]; then
        cur=''
    elif [ "${COMP_WORDS[before]}" = = ]; then
        before=$((before - 1))
    fi
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if _brisko_takes_argument "$previous"; then
            previous=''
            continue
        fi
        previous=${COMP_WORDS[i]}
        if _brisko_is_command "$command" "$previous"; then
            outer=$command
            command=$previous
        fi
    done
    [ "$before" -lt 1 ] || earlier=${COMP_WORDS[before - 1]}
    for i in "$command" "$outer"; do
        ! _brisko_argument "$i" "${COMP_WORDS[before]}" "$earlier" || return 0
    done
    case $cur in
        -*) _brisko_words "$(_brisko_options "$command") $(_brisko_options "$outer")" ;;
        *)
            if [ -n "$(_brisko_commands "$command")" ]; then
                _brisko_words "$(_brisko_commands "$command")"
            else
                _brisko_files -f
            fi
            ;;
    esac
}

complete -F _brisko brisko
)sh";

QByteArray options(const QByteArray& command, const QList<const OptionRow*>& rows) {
    QList<QByteArray> names;
    for (const OptionRow* row : rows)
        names += namesOf(*row);
    return "        " + quoted(command) + ") echo " + quoted(names.join(' ')) + " ;;\n";
}

QByteArray optionsFunction() {
    QByteArray text = "_brisko_options() { # COMMAND\n    case $1 in\n";
    text += options("", optionsOf(nullptr));
    for (const CommandRow& command : Command::commandTable())
        text += options(command.name, optionsOf(&command));
    return text + "    esac\n}\n\n";
}

/// The commands that may come next, after none or after one that runs others.
QByteArray commandsFunction() {
    QList<QByteArray> names;
    QByteArray below;
    for (const CommandRow& command : Command::commandTable()) {
        names.append(command.name);
        if (!commandsBelow(command).isEmpty())
            below +=
                "        " + QByteArray(command.name) + ") echo " + quoted(commandsBelow(command).join(' ')) + " ;;\n";
    }
    return "_brisko_commands() { # COMMAND-BEFORE\n    case $1 in\n        '') echo " + quoted(names.join(' ')) +
           " ;;\n" + below +
           "    esac\n}\n\n"
           "_brisko_is_command() { # COMMAND-BEFORE WORD\n"
           "    [[ \" $(_brisko_commands \"$1\") \" == *\" $2 \"* ]]\n}\n\n";
}

QByteArray takesArgumentFunction() {
    QList<QByteArray> names;
    for (const OptionRow& row : Command::optionTable()) {
        if (row.argumentCount > 0)
            names += namesOf(row);
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return "_brisko_takes_argument() { # OPTION\n    case $1 in\n        " + names.join(" | ") +
           ") return 0 ;;\n    esac\n    return 1\n}\n\n";
}

QByteArray offer(const Argument& argument) {
    switch (argument.kind) {
    case Argument::Kind::File:
        return "_brisko_files -f";
    case Argument::Kind::Folder:
        return "_brisko_files -d";
    case Argument::Kind::Words:
        return "_brisko_words " + quoted(argument.words.join(' '));
    default:
        return ":";
    }
}

/// The lines for the arguments of the options of one command.
QByteArray argumentCases(const QByteArray& command, const QList<const OptionRow*>& rows) {
    QByteArray text;
    for (const OptionRow* row : rows) {
        const QList<Argument> arguments = argumentsOf(*row);
        for (int i = 0; i < arguments.size(); ++i) {
            QList<QByteArray> patterns;
            for (const QByteArray& name : namesOf(*row)) {
                patterns.append("'" + command + (i == 0 ? ": " + name + " '*" : ": '*' " + name + "'"));
            }
            text += "        " + patterns.join(" | ") + ") " + offer(arguments[i]) + " ;;\n";
        }
    }
    return text;
}

QByteArray argumentFunction() {
    QByteArray text = "# Offers what the argument of an option can be; fails where none is expected.\n"
                      "_brisko_argument() { # COMMAND WORD-BEFORE WORD-BEFORE-THAT\n    case \"$1: $2 $3\" in\n";
    text += argumentCases("", optionsOf(nullptr));
    for (const CommandRow& command : Command::commandTable())
        text += argumentCases(command.name, optionsOf(&command));
    return text + "        *) return 1 ;;\n    esac\n    return 0\n}\n";
}

} // namespace

QByteArray bashCompletion() {
    return head + optionsFunction() + commandsFunction() + takesArgumentFunction() + argumentFunction() + body;
}

} // namespace Generate
