#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <iosfwd>
#include <vector>

namespace Testing {

/// One case of a file of cascade cases. A file looks like this:
///
///     // a note
///     case IdBeatsClass
///     registry                                 makes attributes on demand
///       depth float
///     tree                                     nested by indentation; a node is called by its type, the second
///       panel#main.a:hover {width: float}      one of a type "panel2" and so on
///         button
///     sheet 3                                  of that origin, 1 where none is given; the first is called 1.css
///       #main { width: 1px; }
///     do panel .b                              a change after the styling; further ones may follow
///     expect                                   what holds now; further changes and expectations may follow
///       panel width = 1
///       panel width from 1.css:1
///       warning: the messages since the last expectation, all of them, in order
///
/// CascadeScene lists the changes and the kinds of expectation.
struct CascadeCase {
    struct Line {
        int number; ///< in the file
        QByteArray text;
    };
    struct Sheet {
        unsigned origin;
        QByteArray css;
    };
    /// A change, or a block of expectations.
    struct Step {
        bool isChange;
        std::vector<Line> lines;
    };

    QByteArray file; ///< without folder and suffix
    QByteArray name;
    std::vector<Line> registry;
    std::vector<Line> tree;
    std::vector<Sheet> sheets;
    std::vector<Step> steps;

    /// The cases of a file; a line that is out of place makes a case called Malformed.
    static std::vector<CascadeCase> read(const QByteArray& path);
    /// The cases of all files of a folder.
    static std::vector<CascadeCase> readAll(const QByteArray& folder);
};

/// Names the case where a test fails.
std::ostream& operator<<(std::ostream& out, const CascadeCase& cascadeCase);

} // namespace Testing
