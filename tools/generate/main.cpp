#include "ManPage.h"
#include "Shell.h"

#include <cstdio>

namespace {

/// What to write; empty where nothing is called so.
QByteArray textOf(const QByteArray& what, const QByteArray& version, const QByteArray& date) {
    if (what == "man")
        return Generate::manPage(version, date);
    if (what == "bash")
        return Generate::bashCompletion();
    if (what == "zsh")
        return Generate::zshCompletion();
    if (what == "fish")
        return Generate::fishCompletion();
    return {};
}

} // namespace

/// Writes the manual page of the command, or its completion for a shell, into a file.
int main(int argc, char** argv) {
    const QByteArray text = argc == 5 ? textOf(argv[1], argv[2], argv[3]) : QByteArray();
    if (text.isEmpty()) {
        std::fputs("usage: brisko_generate man|bash|zsh|fish VERSION DATE FILE\n", stderr);
        return 2;
    }
    std::FILE* file = std::fopen(argv[4], "wb");
    const bool isWritten =
        file && std::fwrite(text.constData(), 1, std::size_t(text.size()), file) == std::size_t(text.size());
    if (!file || std::fclose(file) != 0 || !isWritten) {
        std::perror(argv[4]);
        return 2;
    }
    return 0;
}
