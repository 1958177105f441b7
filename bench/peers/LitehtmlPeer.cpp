// litehtml: the parser of style sheets, and the styling of a tree of elements.
#include "PeerCases.h"

#include <litehtml/litehtml.h>

namespace {

using namespace litehtml;

constexpr std::uintmax_t largestTree = 1000000; // bytes: all of 10,000 nodes

/// A host without fonts, pictures and anything to draw on.
class NoHost final : public document_container {
public:
    uint_ptr create_font(const tchar_t*, int, int, font_style, unsigned int, font_metrics* metrics) override {
        metrics->ascent = metrics->height = metrics->x_height = 10;
        metrics->descent = 2;
        return 1;
    }
    void delete_font(uint_ptr) override {}
    int text_width(const tchar_t*, uint_ptr) override { return 10; }
    void draw_text(uint_ptr, const tchar_t*, uint_ptr, web_color, const position&) override {}
    int pt_to_px(int points) const override { return points; }
    int get_default_font_size() const override { return 16; }
    const tchar_t* get_default_font_name() const override { return "sans-serif"; }
    void draw_list_marker(uint_ptr, const list_marker&) override {}
    void load_image(const tchar_t*, const tchar_t*, bool) override {}
    void get_image_size(const tchar_t*, const tchar_t*, size& size) override { size = {}; }
    void draw_background(uint_ptr, const background_paint&) override {}
    void draw_borders(uint_ptr, const borders&, const position&, bool) override {}
    void set_caption(const tchar_t*) override {}
    void set_base_url(const tchar_t*) override {}
    void link(const std::shared_ptr<document>&, const element::ptr&) override {}
    void on_anchor_click(const tchar_t*, const element::ptr&) override {}
    void set_cursor(const tchar_t*) override {}
    void transform_text(tstring&, text_transform) override {}
    void import_css(tstring&, const tstring&, tstring&) override {}
    void set_clip(const position&, const border_radiuses&, bool, bool) override {}
    void del_clip() override {}
    void get_client_rect(position& client) const override { client = {0, 0, 1280, 1024}; }
    std::shared_ptr<element> create_element(const tchar_t*, const string_map&,
                                            const std::shared_ptr<document>&) override {
        return nullptr;
    }
    void get_media_features(media_features& media) const override {
        media = {};
        media.type = media_type_screen;
    }
    void get_language(tstring&, tstring&) const override {}
};

/// An empty page: some units of lengths ask for its root.
struct Session {
    NoHost host;
    context rules;
    document::ptr page = document::createFromString("<html><body></body></html>", &host, &rules);
};

double parseSheet(const std::string& text) {
    Session session;
    css sheet;
    return Bench::secondsOf([&] { sheet.parse_stylesheet(text.c_str(), "", session.page, nullptr); });
}

element::ptr makeTree(document& page, const std::vector<Bench::PeerNode>& tree) {
    std::vector<element::ptr> elements;
    for (const Bench::PeerNode& node : tree) {
        string_map attributes{{"class", node.classes}};
        if (!node.id.empty())
            attributes["id"] = node.id;
        elements.push_back(page.create_element(node.type.c_str(), attributes));
        if (node.parent >= 0)
            elements[std::size_t(node.parent)]->appendChild(elements.back());
    }
    return elements.front();
}

double styleTree(const std::string& text, const std::vector<Bench::PeerNode>& tree) {
    Session session;
    css sheet;
    sheet.parse_stylesheet(text.c_str(), "", session.page, nullptr);
    sheet.sort_selectors();
    const element::ptr root = makeTree(*session.page, tree);
    return Bench::secondsOf([&] {
        root->apply_stylesheet(sheet);
        root->parse_styles();
    });
}

} // namespace

int main(int argc, char** argv) {
    return Bench::runCases(argc, argv, [](Bench::Cases& cases, const std::string& folder) {
        Bench::addPeerParsing(cases, folder, parseSheet);
        Bench::addPeerStyling(cases, folder, largestTree, styleTree);
    });
}
