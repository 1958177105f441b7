#pragma once

#include "Options.h"

#include <vector>

namespace Command {

/// The subcommands as bits, for the columns of the tables.
enum CommandBit : unsigned {
    CheckCommand = 1,
    ParseCommand = 2,
    StyleCommand = 4,
    QueryCommand = 8,
    RenderCommand = 16,
    ExplainCommand = 32,
    InspectCommand = 64,
    ViewCommand = 128,
    WatchCommand = 256, // stands before another one
    PictureCommands = RenderCommand | InspectCommand,
    SceneCommands = StyleCommand | QueryCommand | ExplainCommand | PictureCommands | ViewCommand,
    AllCommands = CheckCommand | ParseCommand | SceneCommands
};

/// One subcommand.
struct CommandRow {
    CommandBit bit;
    const char* name;
    const char* usage; ///< what follows the name
    const char* help;
    const char* otherUsage = ""; ///< another form of what follows the name
};

/// One option: what the command line accepts and what the help says. Where an option takes more of some commands than
/// of others, a later row of the same names says what it takes of those.
struct OptionRow {
    const char* names;     ///< as CLI11 takes them: "-s,--sheet"
    const char* arguments; ///< their names in the help; empty for a flag
    int argumentCount;
    unsigned commands;
    const char* help;
    void (*apply)(Options& options, const std::vector<QByteArray>& arguments);
};

/// One exit code of the program.
struct ExitRow {
    int code;
    const char* meaning;
};

const std::vector<ExitRow>& exitTable();
const std::vector<CommandRow>& commandTable();
const std::vector<OptionRow>& optionTable();

/// The options that all of these commands have, each as it holds for them.
std::vector<const OptionRow*> optionsOf(unsigned commands);

} // namespace Command
