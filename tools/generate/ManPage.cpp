#include "ManPage.h"

#include "Shell.h"

namespace Generate {

using Command::CommandRow;
using Command::ExitRow;
using Command::OptionRow;

namespace {

/// Text as it is, whatever roff would make of it.
QByteArray plain(QByteArray text) {
    text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq").replace("`", "\\(ga").replace("^", "\\(ha");
    text.replace("~", "\\(ti");
    return text.startsWith('.') ? "\\&" + text : text;
}

QByteArray bold(const QByteArray& text) {
    return "\\fB" + plain(text) + "\\fR";
}

/// A sentence of a help, which begins without a capital and ends without a stop.
QByteArray sentence(const QByteArray& help) {
    return plain(help.left(1).toUpper() + help.mid(1)) + ".";
}

/// A word of a usage: capitals are a placeholder, also before an ending ("FILE.png"); options are as they are typed.
QByteArray usageWord(const QByteArray& word) {
    const QByteArray name = word.split('.').first();
    const QByteArray ending = word.mid(name.size());
    const bool isPlaceholder = name == name.toUpper() && name != name.toLower();
    if (!isPlaceholder && ending != "...")
        return bold(word);
    return (isPlaceholder ? "\\fI" + plain(name) + "\\fR" : QByteArray()) +
           (ending.isEmpty() || ending == "..." ? plain(ending) : bold(ending));
}

/// The words of a usage.
QByteArray usageText(const QByteArray& usage) {
    QByteArray text;
    QByteArray word;
    const auto endWord = [&] {
        text += word.isEmpty() ? word : usageWord(word);
        word.clear();
    };
    for (const char c : usage) {
        if (QByteArray(" |[]()").contains(c)) {
            endWord();
            text += c;
        } else {
            word += c;
        }
    }
    endWord();
    return text;
}

QByteArray commandHeading(const CommandRow& command, const char* usage) {
    return bold(QByteArray("brisko ") + command.name) + " " + usageText(usage);
}

QByteArray synopsis() {
    QByteArray text = ".SH SYNOPSIS\n.nf\n";
    for (const CommandRow& command : Command::commandTable()) {
        text += commandHeading(command, command.usage) + " [\\fIOPTION\\fR\\&...]\n";
        if (*command.otherUsage)
            text += commandHeading(command, command.otherUsage) + "\n";
    }
    return text + bold("brisko --help") + " | " + bold("--version") + "\n.fi\n";
}

QByteArray commands() {
    QByteArray text = ".SH COMMANDS\n";
    for (const CommandRow& command : Command::commandTable())
        text += ".TP\n" + commandHeading(command, command.usage) + "\n" + sentence(command.help) + "\n";
    return text;
}

QByteArray optionHeading(const OptionRow& option) {
    QList<QByteArray> forms;
    for (const QByteArray& name : namesOf(option)) {
        QByteArray form = bold(name);
        for (const Argument& argument : argumentsOf(option))
            form += " " + (argument.kind == Argument::Kind::Words ? usageText(argument.name)
                                                                  : "\\fI" + plain(argument.name) + "\\fR");
        forms.append(form);
    }
    return forms.join(", ");
}

/// Which commands have an option; empty where all do that do not run others.
QByteArray belongsTo(const OptionRow& option) {
    if ((option.commands & Command::AllCommands) == Command::AllCommands)
        return "";
    QList<QByteArray> names;
    for (const CommandRow& command : Command::commandTable()) {
        if (option.commands & command.bit)
            names.append(bold(command.name));
    }
    return "\n.br\nOnly of " + names.join(", ") + ".";
}

QByteArray options() {
    QByteArray text =
        ".SH OPTIONS\nOptions take effect from left to right. What begins with a dash and is no option stands "
        "behind\n\\fB\\-\\-\\fR.\n";
    for (const OptionRow& option : Command::optionTable())
        text += ".TP\n" + optionHeading(option) + "\n" + sentence(option.help) + belongsTo(option) + "\n";
    return text;
}

QByteArray exitStatus() {
    QByteArray text = ".SH EXIT STATUS\n";
    for (const ExitRow& row : Command::exitTable())
        text += ".TP\n" + bold(QByteArray::number(row.code)) + "\n" + sentence(row.meaning) + "\n";
    return text;
}

constexpr char description[] = R"(.SH DESCRIPTION
Lays CSS style sheets over a scene, which is an XML document, and shows what comes of it.
Every element of the scene is a node whose CSS type is the name of the element;
.BR id ", " class " and " pseudo
are its identity, other attributes set properties.
.PP
With
.BR \-\-format " " json ,
all messages are in the document, and the error stream stays empty unless the exit status is 2.
)";

constexpr char rest[] = R"(.SH ENVIRONMENT
.TP
.B NO_COLOR
Where it is set and not empty, no colours are used unless they are asked for.
.SH EXAMPLES
.TP
.B brisko check main.css
Prints what is wrong with a sheet.
.TP
.B brisko style scene.xml \-s main.css \-\-on button :hover
Prints the scene as it is with the pointer on every button, and the line that each value came from.
.TP
.B brisko explain scene.xml \-s main.css \(aqpanel > button\(aq width
Prints which declarations set the width of those buttons, and why one of them won.
)";

} // namespace

QByteArray manPage(const QByteArray& version, const QByteArray& date) {
    return ".TH BRISKO 1 " + date + " \"brisko " + version + "\" \"User Commands\"\n" +
           ".SH NAME\nbrisko \\- CSS for scenes of attribute\\-bearing nodes\n" + synopsis() + description +
           commands() + options() + exitStatus() + rest;
}

} // namespace Generate
