#include "support/page_dump.h"

#include "support/tables.h"

namespace tv::test {

namespace {

std::string quoted(const std::string& s) { return '"' + s + '"'; }

}  // namespace

std::string dump(const forms::Page& page) {
    static const char* const kinds[] = {"line", "rect", "dot", "text", "polyline"};
    std::string out = "page " + shortest(page.width) + " x " + shortest(page.height);
    out += " " + quoted(page.title) + "\n";
    for (const forms::PageOp& op : page.ops) {
        out += kinds[static_cast<int>(op.kind)];
        for (double v : {op.x1, op.y1, op.x2, op.y2}) out += " " + shortest(v);
        out += " pen " + shortest(op.width) + " ink " + std::to_string(op.colour);
        if (op.fill != -1) out += " fill " + std::to_string(op.fill);
        if (op.kind == forms::PageOp::Kind::Text) {
            out += " font " + op.font.family + " " + shortest(op.font.size);
            out += (op.font.bold ? " bold " : " ") + quoted(op.text);
        }
        if (!op.points.empty()) out += " points";
        for (double v : op.points) out += " " + shortest(v);
        if (!op.clip.empty()) {
            out += " clip";
            for (double v : {op.clip.x, op.clip.y, op.clip.w, op.clip.h}) out += " " + shortest(v);
        }
        out += "\n";
    }
    return out;
}

std::string dump(const std::vector<forms::Page>& pages) {
    std::string out;
    for (const forms::Page& page : pages) out += dump(page);
    return out;
}

std::string dump(const forms::PictureBox& picture) {
    static const char* const kinds[] = {"line", "point", "text"};
    std::string out = "picture " + shortest(picture.width()) + " x " + shortest(picture.height());
    out += "\n";
    for (const forms::DrawOp& op : picture.ops()) {
        out += kinds[static_cast<int>(op.kind)];
        for (double v : {op.x1, op.y1, op.x2, op.y2}) out += " " + shortest(v);
        out += " ink " + std::to_string(op.color) + " pen " + std::to_string(op.width);
        if (op.kind == forms::DrawOp::Kind::Text) out += " " + quoted(op.text);
        out += "\n";
    }
    return out;
}

}  // namespace tv::test
