#pragma once

#include "Brisko/CSSParser.h"
#include "Brisko/Styleable.h"
#include "Gorvel/Trace.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace Brisko {

/// Keeps scenes styled by sheets as these are on disk: whenever a sheet or a file that it imports changes, all are read
/// again into a new sheet, which then takes the place of the old one as a whole.
///
///     StyleSheetWatcher watcher({{"style/main.css"}});
///     watcher.setHandler([](const StyleSheetWatcher::Report& report) {
///         for (const Gorvel::Trace::Message& message : report.messages)
///             log(message.text);
///     });
///     watcher.addRoot(scene);
///     watcher.reload(); // the first time; from here on by itself
///     return application.exec();
///
/// Files are noticed that are written to, in one or more steps, replaced by renaming another one, removed and made
/// again, and missing at first; so are symbolic links that come to lead elsewhere. A burst of changes is one reload.
///
/// It needs the event loop of a QCoreApplication or a QThread in the thread where it is used, which is the one that
/// owns the roots. Everything happens there, between two events: no other thread touches the scene. Whoever is told
/// gives a function instead of connecting a signal: no class of this library is a QObject, and programs that use it
/// take no further step of their build.
///
/// It may be destroyed, also by its handler, its functions and by listeners of attributes, whenever its user likes; so
/// may the roots.
class BRISKO_EXPORT StyleSheetWatcher {
public:
    /// A sheet to read, as CSSParser::parseSheet() takes it.
    struct Source {
        QString path; ///< relative to the working directory
        SimpleSelector::Origin origin = SimpleSelector::AuthorOrigin;
    };

    /// What became of a reload.
    struct Report {
        /// The worst that a source ended with. After OpenError the sheet before stays in force, on all roots; single
        /// mistakes, a grammar that gave up and an import that is missing let what was read take its place.
        CSSParser::ParseError result = CSSParser::NoError;
        QStringList unreadable;   ///< the sources that could not be opened
        QStringList changedFiles; ///< why it was read again; empty where reload() was called
        QStringList files;        ///< that were read, imported ones included
        /// What there is to say about the sheets and about laying them over the roots. Where there is a handler, these
        /// do not go to the sink of Gorvel::Trace as well.
        std::vector<Gorvel::Trace::Message> messages;
        /// The nodes whose values from style sheets are others than before, by the declarations that win: another value
        /// or importance for a property, one more, or one less. Not among them are nodes where only the line of a
        /// declaration or its selector differs, and those that came or went meanwhile. Found only where there is a
        /// handler; valid until the handler changes the tree.
        std::vector<Styleable*> changedNodes;
    };

    using Handler = std::function<void(const Report& report)>;
    using Preparation = std::function<void(const StyleSheet& sheet, const QStringList& files)>;

    /// Milliseconds of silence before a burst of changes counts as over.
    static constexpr int defaultDelay = 50;

    /// @param sources  parsed into one sheet, in their order
    explicit StyleSheetWatcher(std::vector<Source> sources);
    ~StyleSheetWatcher();
    StyleSheetWatcher(const StyleSheetWatcher&) = delete;
    StyleSheetWatcher& operator=(const StyleSheetWatcher&) = delete;

    // How sheets are read, from the next reload on; see CSSParser.
    void setMedia(const QString& media);
    void setDpi(float dpi);
    void setImportFilter(CSSParser::ImportFilter filter);

    /// Sets how long the files have to be left alone before they are read, in milliseconds, from 0. While they are not,
    /// they are read all the same after ten times as long.
    void setDelay(int milliseconds);

    /// Sets what is told of every reload, once it is over. It must not throw.
    void setHandler(Handler handler);
    /// Sets what is called with every new sheet and the files that it was read from, before any root is given it: to
    /// register attributes, or to set where images are looked for. It must not throw.
    void setPreparation(Preparation preparation);

    /// Gives a root the sheet in force, if there is one, and every later one. A root that is deleted is forgotten; one
    /// that was added before is not added again. While a node suppresses styling it keeps the sheet that it has.
    void addRoot(Styleable& root);
    /// Gives a root no further sheet; it keeps the one that it has.
    void removeRoot(Styleable& root);

    /// Reads the sheets now and begins to watch them. Called by the handler or a listener in the middle of a reload, it
    /// has the sheets read once more soon.
    /// @return the worst that a source ended with; the last result where it was called in the middle of a reload
    CSSParser::ParseError reload();

    /// The sheet in force; null as long as none could be read.
    std::shared_ptr<StyleSheet> sheet() const;
    /// The files that are watched: sources and what they import, also where it is missing.
    QStringList watchedFiles() const;

private:
    class Session;
    std::shared_ptr<Session> m_session; // outlives a reload in which its user destroys the watcher
};

} // namespace Brisko
