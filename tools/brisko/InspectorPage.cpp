#include "InspectorPage.h"

#include "InspectorParts.h"

#include <QCryptographicHash>
#include <QIODevice>

namespace Command {

namespace {

/// The source expression of a policy that allows exactly this text of an element.
QByteArray hashSource(const QByteArray& text) {
    return "'sha256-" + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toBase64() + "'";
}

QByteArray policyFor(const QByteArray& script, const QByteArray& style) {
    return "default-src 'none'; script-src " + hashSource(script) + "; style-src " + hashSource(style) +
           "; img-src data:; base-uri 'none'; form-action 'none'; require-trusted-types-for 'script'; "
           "trusted-types 'none'";
}

} // namespace

QByteArray embeddable(const QByteArray& json) {
    QByteArray text = json;
    text.replace('<', "\\u003c").replace('>', "\\u003e").replace('&', "\\u0026");
    return text.replace("\xe2\x80\xa8", "\\u2028").replace("\xe2\x80\xa9", "\\u2029");
}

bool writeInspectorPage(QIODevice& out, const QByteArray& json) {
    const QByteArray style(InspectorParts::style);
    const QByteArray script(InspectorParts::script);
    const QByteArray page(InspectorParts::page);
    int written = 0; // of the page
    const auto replace = [&](const char* mark, const QByteArray& text) {
        const int place = page.indexOf(mark, written);
        const QByteArray before = page.mid(written, place - written);
        written = place + int(qstrlen(mark));
        return place >= 0 && out.write(before) == before.size() && out.write(text) == text.size();
    };
    return replace("@POLICY@", policyFor(script, style)) && replace("@STYLE@", style) &&
           replace("@DATA@", embeddable(json)) && replace("@SCRIPT@", script) && out.write(page.mid(written)) >= 0;
}

} // namespace Command
