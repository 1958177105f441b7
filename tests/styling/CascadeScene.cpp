#include "styling/CascadeScene.h"

#include "styling/TestAttributes.h"

#include <QFile>
#include <QTemporaryDir>

namespace Testing {

using Brisko::SimpleSelector;
using Ondex::Attribute;

namespace {

int indentationOf(const QByteArray& line) {
    int blanks = 0;
    while (blanks < line.size() && line[blanks] == ' ')
        ++blanks;
    return blanks;
}

/// The parts of "a#b.c:d", each with its sign.
QByteArrayList partsOf(const QByteArray& compound) {
    QByteArrayList parts{QByteArray()};
    for (char sign : compound) {
        if (sign == '#' || sign == '.' || sign == ':')
            parts.append(QByteArray());
        parts.last().append(sign);
    }
    return parts;
}

/// Reads every sheet from a file of its own, so that sources have names and lines.
std::shared_ptr<Brisko::StyleSheet> readSheets(const std::vector<CascadeCase::Sheet>& sheets) {
    const QTemporaryDir folder;
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    Brisko::CSSParser parser;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const QString path = folder.filePath(QString("%1.css").arg(i + 1));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly) && file.write(sheets[i].css) == sheets[i].css.size()) {
            file.close();
            parser.parseSheet(*sheet, path, nullptr, SimpleSelector::Origin(sheets[i].origin));
        }
    }
    return sheet;
}

} // namespace

CascadeScene::CascadeScene(const CascadeCase& cascadeCase) : m_sheet(readSheets(cascadeCase.sheets)) {
    for (const CascadeCase::Line& line : cascadeCase.registry) {
        const QByteArrayList words = line.text.trimmed().split(' ');
        const QByteArray type = words.value(1);
        m_registrants.push_back(std::make_unique<Brisko::LazyAttributeManager::Registrant>(
            words[0], [type](Ondex::Node* node, const QByteArray& name) { return makeAttribute(node, name, type); }));
    }
    buildTree(cascadeCase.tree);
}

CascadeScene::~CascadeScene() = default;

void CascadeScene::buildTree(const std::vector<CascadeCase::Line>& lines) {
    std::vector<TestNode*> path; // the node that was last built at every depth
    for (const CascadeCase::Line& line : lines) {
        const auto depth = std::size_t(indentationOf(line.text) / 2);
        TestNode* node = build(line.text.trimmed());
        path.resize(std::min(depth, path.size()));
        if (path.empty())
            m_root.reset(node);
        else
            path.back()->addAttribute(node);
        path.push_back(node);
    }
}

TestNode* CascadeScene::build(const QByteArray& text) {
    const int brace = text.indexOf('{');
    const QByteArrayList parts = partsOf(text.left(brace < 0 ? text.size() : brace).trimmed());
    auto* node = new TestNode(parts[0]);
    QByteArray name = parts[0];
    for (int copy = 2; m_nodes.count(name); ++copy)
        name = parts[0] + QByteArray::number(copy);
    m_nodes[name] = node;
    for (int i = 1; i < parts.size(); ++i)
        applyIdentity(*node, parts[i]);
    if (brace >= 0)
        addAttributes(*node, text.mid(brace + 1, text.lastIndexOf('}') - brace - 1));
    return node;
}

void CascadeScene::addAttributes(TestNode& node, const QByteArray& list) {
    for (const QByteArray& item : list.split(';')) {
        const QByteArrayList pair = item.split(':');
        if (!makeAttribute(&node, pair[0].trimmed(), pair.value(1).trimmed()))
            ADD_FAILURE() << "no such attribute type: " << item.constData();
    }
}

void CascadeScene::style() {
    m_root->setStyle(Brisko::Style(m_sheet));
}

bool CascadeScene::apply(const QByteArray& change) {
    QByteArrayList words = change.split(' ');
    const auto node = m_nodes.find(words.takeFirst());
    if (node == m_nodes.end() || words.isEmpty())
        return false;
    const QByteArray rest = change.mid(node->first.size() + words[0].size() + 2);
    return applyIdentity(*node->second, words[0]) || applyPlace(*node->second, words[0], rest) ||
           applyAttribute(*node->second, words[0], words);
}

bool CascadeScene::applyIdentity(TestNode& node, const QByteArray& change) {
    const bool off = change.startsWith('-');
    const QByteArray name = change.mid(off ? 2 : 1);
    switch (change[off ? 1 : 0]) {
    case '.':
        node.toggleCSSClass(name, !off);
        return true;
    case ':':
        node.setPseudoClass(name, !off);
        return true;
    case '#':
        node.setCSSId(QString::fromUtf8(name));
        return true;
    default:
        return false;
    }
}

bool CascadeScene::applyPlace(TestNode& node, const QByteArray& word, const QByteArray& rest) {
    if (word == "add") {
        node.addAttribute(build(rest));
    } else if (word == "remove") {
        static_cast<Ondex::Node*>(node.host())->removeAttribute(&node);
        m_removed.emplace_back(&node);
    } else if (word == "move") {
        m_nodes.at(rest)->addAttribute(&node);
    } else if (word == "type") {
        node.setCSSType(rest);
    } else if (word == "classes") {
        node.setCSSClasses(QString::fromUtf8(rest));
    } else if (word == "restyle") {
        node.updateStyle();
    } else if (word == "suppress" || word == "allow") {
        node.setStylingSuppressed(word == "suppress");
    } else {
        return false;
    }
    return true;
}

bool CascadeScene::applyAttribute(TestNode& node, const QByteArray& word, const QByteArrayList& words) {
    Attribute* attribute = node.attribute(words.value(1));
    if (!attribute)
        return false;
    if (word == "set")
        return attribute->set(QString::fromUtf8(words.value(2)), Attribute::UserLayer, Attribute::VU_UNKNOWN);
    if (word == "unset")
        attribute->clearValue(Attribute::UserLayer);
    else if (word == "drop")
        delete attribute;
    else
        return false;
    return true;
}

QString CascadeScene::answer(const QByteArrayList& question) {
    const auto found = m_nodes.find(question.value(0));
    if (found == m_nodes.end() || question.size() < 2)
        return "?";
    TestNode& node = *found->second;
    if (question[1] == "waiting")
        return waitingText(node.childStyle());
    if (question[1] == "children")
        return childNames(node);
    if (question[1] == "selector")
        return node.simpleSelector(true);
    if (question[1] == "visits")
        return QString::number(std::exchange(node.styleCount, 0));
    return answerAttribute(node, question);
}

QString CascadeScene::answerAttribute(const TestNode& node, const QByteArrayList& question) const {
    const QByteArray kind = question.value(2);
    if (kind.isEmpty())
        return textOf(node, question[1]);
    if (kind == "layer")
        return textOf(node, question[1], question.value(3).toInt());
    if (kind == "from") {
        const QString source = node.attributeSource(question[1]);
        return source.isEmpty() ? QString("nowhere") : source.mid(source.lastIndexOf('/') + 1);
    }
    const Attribute* attribute = node.attribute(question[1]);
    if (kind != "armed" || !attribute)
        return "?";
    if (!attribute->isTransitionArmed())
        return "never";
    return QString("%1 %2").arg(double(attribute->transitionDuration())).arg(double(attribute->transitionDelay()));
}

QString CascadeScene::childNames(const TestNode& node) const {
    QStringList names;
    for (const Brisko::Styleable* child : node.children())
        names << QString::fromUtf8(nameOf(child));
    return names.isEmpty() ? QString("none") : names.join(' ');
}

QByteArray CascadeScene::nameOf(const Brisko::Styleable* node) const {
    for (const auto& [name, named] : m_nodes) {
        if (named == node)
            return name;
    }
    return "?";
}

} // namespace Testing
