// GTK 4 parses the sheet of a provider. How it matches is not open to programs.
#include "PeerCases.h"

#include <gtk/gtk.h>

#include <pthread.h>

namespace {

void ignoreError(GtkCssProvider*, GtkCssSection*, GError*, gpointer) {}

constexpr std::uintmax_t largestSheet = 1000000; // bytes: its time grows with the square of the rules

double parse(const std::string& text) {
    GtkCssProvider* provider = gtk_css_provider_new();
    // Without a listener, what GTK does not know is printed, which takes long.
    g_signal_connect(provider, "parsing-error", G_CALLBACK(ignoreError), nullptr);
    const double seconds =
        Bench::secondsOf([&] { gtk_css_provider_load_from_data(provider, text.data(), gssize(text.size())); });
    g_object_unref(provider);
    return seconds;
}

struct Program {
    int argc;
    char** argv;
    int result;
};

void* run(void* data) {
    auto* program = static_cast<Program*>(data);
    program->result = Bench::runCases(program->argc, program->argv, [](Bench::Cases& cases, const std::string& folder) {
        Bench::addPeerParsing(cases, folder, parse, largestSheet);
    });
    return nullptr;
}

} // namespace

// GTK goes deep into functions when a sheet has many rules, so it needs a thread with a large stack.
int main(int argc, char** argv) {
    Program program{argc, argv, 2};
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::size_t(1) << 30);
    pthread_t thread;
    if (pthread_create(&thread, &attributes, run, &program) == 0)
        pthread_join(thread, nullptr);
    return program.result;
}
