#pragma once

#include "Brisko/Export.h"
#include "Brisko/Selector.h"
#include "Brisko/SimpleSelector.h"
#include "Brisko/StyleSheet.h"
#include "Ondex/StyleValue.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace Brisko {

class ParserDriver;

/// Reads CSS text: whole style sheets, selector lists and single values.
///
///     CSSParser parser;
///     parser.setMedia("screen");
///     StyleSheet sheet;
///     QStringList files;
///     if (parser.parseSheet(sheet, "style/main.css", &files, SimpleSelector::Origin(1)) != CSSParser::NoError)
///         ...   // what was read up to the error is in the sheet all the same
///
/// A parser may be used again and again, by one thread at a time. It never throws and never prints: what is wrong with
/// a text goes to Gorvel::Trace, and reading goes on behind it where that is possible. Nesting is limited by a grammar
/// stack of 10000 entries, imports by 16 levels and 1000 files; a file that is imported while it is being read is not
/// read again. Only regular files are opened, at most 2 GiB of each; setImportFilter() decides which of those that a
/// sheet names.
class BRISKO_EXPORT CSSParser {
public:
    /// How parseSheet() ended.
    enum ParseError {
        NoError = 0,    ///< the file was read; single mistakes in it may have been reported
        OpenError = 1,  ///< the file is missing, unreadable, too long or not a regular file
        SyntaxError = 2 ///< the grammar gave up before the end; what stood before is in the sheet
    };

    /// Makes a parser for the medium "screen" with the default resolution.
    CSSParser();
    virtual ~CSSParser();
    CSSParser(const CSSParser&) = delete;
    CSSParser& operator=(const CSSParser&) = delete;

    /// Sets the resolution that turns physical lengths into pixels. Imported files take the default resolution.
    /// @param dpi  dots per inch; 0 or less means the default
    void setDpi(float dpi);

    /// Returns the dots per inch in use: those of setDpi(), otherwise defaultDpi().
    float dpi() const;

    /// Sets the resolution of all parsers that have none of their own. Not guarded: set it before other threads parse.
    /// @param dpi  dots per inch, 40.053 at start
    static void setDefaultDpi(float dpi);

    /// Returns the resolution of all parsers that have none of their own, in dots per inch.
    static float defaultDpi();

    /// Sets the medium that "@media" and "@import" are compared with, in any case. "all" always matches.
    void setMedia(const QString& media);

    /// Returns the medium, "screen" at start.
    const QString& media() const;

    /// Says whether a file may be imported. It may be called on any level of imports, and must not use this parser.
    using ImportFilter = std::function<bool(const QString& path)>;

    /// Sets what decides about imports, before anything is opened. An import that is refused is reported with file and
    /// line and left out, and the sheet goes on; so is one about which the filter throws. Sheets that the program
    /// itself names, in parseSheet(), are not asked about.
    ///
    ///     parser.setImportFilter([](const QString& path) { return QFileInfo(path).canonicalPath() == "/srv/sheets";
    ///     });
    ///
    /// @param filter  given the path that would be opened: an absolute one as written, a relative one behind the folder
    ///                of the importing file, with neither ".." nor symbolic links resolved; an empty function lets
    ///                every import pass, as at the start
    void setImportFilter(ImportFilter filter);

    /// Reads a style sheet file and what it imports, and appends the rules to a sheet. Lines count from 1.
    /// @param sheet     receives the rules; not kept
    /// @param path      file name, relative to the working directory
    /// @param fileList  receives the path of every file that was opened, this one first; may be null
    /// @param origin    given to every compound selector
    ParseError parseSheet(StyleSheet& sheet, const QString& path, QStringList* fileList, SimpleSelector::Origin origin);

    /// Reads a style sheet from bytes and appends the rules to a sheet. Lines count from 0; imports are relative to the
    /// working directory.
    /// @param sheet     receives the rules; not kept
    /// @param text      the sheet. As in files, names and quoted texts are read byte by byte as Latin-1, so that
    /// letters
    ///                  beyond ASCII are to be written as escapes; what is in url() is UTF-8
    /// @param fileList  receives the path of every imported file that was opened; may be null
    /// @param origin    given to every compound selector
    /// @return          false where the grammar gave up; what stood before is in the sheet
    bool parseString(StyleSheet& sheet, const QByteArray& text, QStringList* fileList, SimpleSelector::Origin origin);

    /// Reads a comma-separated list of selectors, all of origin 1. The text is read as its bytes in UTF-8 would be, see
    /// parseString().
    /// @return  the selectors in their order; up to the first mistake where there is one
    QList<Selector> selectors(const QString& text);

    /// Reads one property value, such as "1px solid red", from bytes as parseString() reads them.
    /// @return  the value; an empty one where the text is none
    Ondex::StyleValue expr(const QByteArray& text);

    /// Reads a list of selectors with a parser of its own; see selectors().
    static QList<Selector> parseSelectors(const QString& text);

    /// Reads the leftmost compound of the first selector in a text: "a.b" from "a.b > c, d".
    /// @return  the compound, which has no successor; an empty one of origin 1 where there is none
    static SimpleSelector parseSimpleSelector(const QString& text);

    /// Reads one property value with a parser of its own; see expr(). Silent about an empty text.
    static Ondex::StyleValue parseValue(const QByteArray& text);

private:
    friend class ParserAccess;

    std::unique_ptr<ParserDriver> m_driver;
};

} // namespace Brisko
