#include "brisko/Commands.h"

#include <QTextCodec>

#include <cstdlib>
#include <iostream>

#include <unistd.h>

int main(int argc, char** argv) {
    // File names are UTF-8 whatever the locale says, so that an argument means the same file everywhere.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    std::ios::sync_with_stdio(false);
    const char* noColor = std::getenv("NO_COLOR");
    Command::Console console{std::cin, std::cout, std::cerr};
    console.outIsTerminal = isatty(STDOUT_FILENO) != 0;
    console.errIsTerminal = isatty(STDERR_FILENO) != 0;
    console.noColor = noColor && *noColor;
    return Command::run(std::vector<QByteArray>(argv + 1, argv + (argc > 0 ? argc : 1)), console);
}
