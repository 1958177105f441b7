#include "Brisko/StyleSheetWatcher.h"

#include "Gorvel/FileWatch_p.h"
#include "Ondex/AttributeWatch_p.h"
#include "styling/StyleSnapshot.h"

#include <algorithm>
#include <utility>

namespace Brisko {

using Gorvel::FileStates;
using Gorvel::Trace;

namespace {

constexpr int mostImports = 1000; // the parser reads no more

/// The sheets of all sources, read into one.
struct Reading {
    std::shared_ptr<StyleSheet> sheet = std::make_shared<StyleSheet>();
    FileStates states; ///< of what was read or would have been
    QStringList files;
    QStringList unreadable;
    CSSParser::ParseError result = CSSParser::NoError;

    void take(const QString& path, CSSParser::ParseError error) {
        if (error == CSSParser::OpenError)
            unreadable.append(path);
        if (result != CSSParser::OpenError && error != CSSParser::NoError)
            result = error;
    }
};

/// A root that was added, and whether it still is there.
struct Root {
    explicit Root(Styleable& root) : node(&root), watch(root) {}
    bool isThere() const { return !isRemoved && watch.isAlive(); }

    Styleable* node;
    Ondex::AttributeWatch watch;
    bool isRemoved = false;
};

} // namespace

/// What a watcher keeps, and what it does.
class StyleSheetWatcher::Session {
public:
    explicit Session(std::vector<Source> sources) : m_sources(std::move(sources)) {}

    /// @param self  keeps this session to the end
    static void reload(const std::shared_ptr<Session>& self, const QStringList& changedFiles);
    void addRoot(Styleable& root);
    void removeRoot(Styleable& root);
    /// Ends what goes on: the watcher is destroyed.
    void close();

    std::vector<Source> m_sources;
    QString m_media = QStringLiteral("screen");
    float m_dpi = 0.f;
    CSSParser::ImportFilter m_filter;
    Handler m_handler;
    Preparation m_preparation;
    std::shared_ptr<StyleSheet> m_sheet;
    std::unique_ptr<Gorvel::FileWatch> m_watch; // null once the watcher is destroyed
    CSSParser::ParseError m_lastResult = CSSParser::NoError;
    bool m_isReloading = false;

private:
    Reading read() const;
    void layOver(Report& report);

    std::vector<std::shared_ptr<Root>> m_roots;
};

Reading StyleSheetWatcher::Session::read() const {
    Reading reading;
    int imports = 0;
    CSSParser parser;
    parser.setMedia(m_media);
    parser.setDpi(m_dpi);
    // The functions of the user are copied before they run, as they may set others in their place.
    parser.setImportFilter([&, filter = m_filter](const QString& path) {
        if (filter && !filter(path))
            return false;
        if (++imports <= mostImports)
            reading.states.note(path);
        return true;
    });
    for (const Source& source : m_sources) {
        reading.states.note(source.path);
        reading.take(source.path, parser.parseSheet(*reading.sheet, source.path, &reading.files, source.origin));
    }
    return reading;
}

/// Gives the roots the sheet, one after another. Listeners may add, remove and delete roots, and destroy the watcher.
void StyleSheetWatcher::Session::layOver(Report& report) {
    StyleSnapshot before;
    const std::vector<std::shared_ptr<Root>> roots = m_roots;
    for (const std::shared_ptr<Root>& root : roots) {
        if (m_handler && root->isThere())
            before.add(*root->node);
    }
    const Style style(m_sheet);
    for (const std::shared_ptr<Root>& root : roots) {
        if (m_watch && root->isThere())
            root->node->setStyle(style);
    }
    report.changedNodes = before.changedNodes();
}

void StyleSheetWatcher::Session::reload(const std::shared_ptr<Session>& self, const QStringList& changedFiles) {
    const std::shared_ptr<Session> kept = self;
    Report report;
    {
        const auto capture = self->m_handler ? std::make_unique<Trace::Capture>() : nullptr;
        self->m_isReloading = true;
        Reading reading = self->read();
        if (!self->m_watch) // a sink or the filter destroyed the watcher
            return;
        report.result = self->m_lastResult = reading.result;
        report.unreadable = reading.unreadable;
        report.changedFiles = changedFiles;
        report.files = reading.files;
        self->m_watch->watch(reading.states);
        if (reading.result != CSSParser::OpenError) {
            self->m_sheet = reading.sheet;
            if (const Preparation preparation = self->m_preparation)
                preparation(*reading.sheet, reading.files);
            self->layOver(report);
        }
        if (capture)
            report.messages = capture->messages();
    }
    if (const Handler handler = self->m_handler) // none any more where the watcher was destroyed
        handler(report);
    self->m_isReloading = false;
}

void StyleSheetWatcher::Session::addRoot(Styleable& root) {
    m_roots.erase(std::remove_if(m_roots.begin(), m_roots.end(),
                                 [](const std::shared_ptr<Root>& held) { return !held->isThere(); }),
                  m_roots.end());
    const bool isKnown = std::any_of(m_roots.begin(), m_roots.end(),
                                     [&root](const std::shared_ptr<Root>& held) { return held->node == &root; });
    if (isKnown)
        return;
    m_roots.push_back(std::make_shared<Root>(root));
    if (m_sheet)
        root.setStyle(Style(m_sheet)); // may destroy the watcher
}

void StyleSheetWatcher::Session::removeRoot(Styleable& root) {
    const auto found = std::find_if(m_roots.begin(), m_roots.end(), [&root](const std::shared_ptr<Root>& held) {
        return held->isThere() && held->node == &root;
    });
    if (found == m_roots.end())
        return;
    (*found)->isRemoved = true;
    m_roots.erase(found);
}

void StyleSheetWatcher::Session::close() {
    m_watch.reset();
    m_handler = nullptr;
    m_preparation = nullptr;
    m_roots.clear();
}

StyleSheetWatcher::StyleSheetWatcher(std::vector<Source> sources)
    : m_session(std::make_shared<Session>(std::move(sources))) {
    const std::weak_ptr<Session> session = m_session;
    m_session->m_watch = std::make_unique<Gorvel::FileWatch>([session](const QStringList& changedFiles) {
        const std::shared_ptr<Session> held = session.lock();
        if (held && held->m_isReloading) // by an event loop that a listener runs
            held->m_watch->ask();
        else if (held)
            Session::reload(held, changedFiles);
    });
}

StyleSheetWatcher::~StyleSheetWatcher() {
    m_session->close();
}

void StyleSheetWatcher::setMedia(const QString& media) {
    m_session->m_media = media;
}

void StyleSheetWatcher::setDpi(float dpi) {
    m_session->m_dpi = dpi;
}

void StyleSheetWatcher::setImportFilter(CSSParser::ImportFilter filter) {
    m_session->m_filter = std::move(filter);
}

void StyleSheetWatcher::setDelay(int milliseconds) {
    m_session->m_watch->setDelay(milliseconds);
}

void StyleSheetWatcher::setHandler(Handler handler) {
    m_session->m_handler = std::move(handler);
}

void StyleSheetWatcher::setPreparation(Preparation preparation) {
    m_session->m_preparation = std::move(preparation);
}

void StyleSheetWatcher::addRoot(Styleable& root) {
    const std::shared_ptr<Session> kept = m_session;
    kept->addRoot(root);
}

void StyleSheetWatcher::removeRoot(Styleable& root) {
    m_session->removeRoot(root);
}

CSSParser::ParseError StyleSheetWatcher::reload() {
    const std::shared_ptr<Session> kept = m_session;
    if (kept->m_isReloading)
        kept->m_watch->ask();
    else
        Session::reload(kept, {});
    return kept->m_lastResult;
}

std::shared_ptr<StyleSheet> StyleSheetWatcher::sheet() const {
    return m_session->m_sheet;
}

QStringList StyleSheetWatcher::watchedFiles() const {
    return m_session->m_watch->states().paths();
}

} // namespace Brisko
