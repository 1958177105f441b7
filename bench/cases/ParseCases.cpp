#include "AddCases.h"

#include "harness/Timing.h"
#include "scene/Sheets.h"

namespace Bench {

void addParsing(Cases& cases, const std::string& folder) {
    for (const std::string& name : filesOf(folder, "", ".css")) {
        cases.add("parse/" + name, [path = folder + '/' + name]() -> Figures {
            const QByteArray text = readFile(QString::fromStdString(path));
            const double seconds = medianSeconds([&] {
                std::shared_ptr<Brisko::StyleSheet> sheet; // goes when the time has been taken
                return secondsOf([&] { sheet = parse(text); });
            });
            return {{"MB/s", double(text.size()) / 1e6 / seconds}};
        });
    }
}

} // namespace Bench
