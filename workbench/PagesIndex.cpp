#include "workbench/PagesIndex.h"

#include <cstdio>

namespace {

std::string Escape(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

} // namespace

std::string PictureFileName(int chipType, int subType, const std::string& className) {
    char number[32];
    if (subType)
        std::snprintf(number, sizeof number, "%05d-%d-", chipType, subType);
    else
        std::snprintf(number, sizeof number, "%05d-", chipType);
    return number + className + ".png";
}

std::string PagesIndexHtml(const std::vector<PagePicture>& pictures) {
    std::string html =
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>regvane chip pages</title>\n"
        "<style>body{font-family:sans-serif;background:#ddd}"
        "figure{display:inline-block;vertical-align:top;margin:8px;background:#fff;padding:6px}"
        "figcaption{font-size:13px;margin-bottom:4px}.none{color:#a00}</style></head><body>\n"
        "<h1>regvane chip pages</h1>\n";
    int shown = 0;
    for (const PagePicture& p : pictures)
        shown += p.file.empty() ? 0 : 1;
    html += "<p>Pages: " + std::to_string(shown);
    if (shown != static_cast<int>(pictures.size()))
        html += "; chip types without a page: " + std::to_string(pictures.size() - shown);
    html += "</p>\n";
    for (const PagePicture& p : pictures) {
        html += "<figure><figcaption><b>" + Escape(p.label) + "</b> " + Escape(p.className) + " (" +
                Escape(p.modelName) + ")</figcaption>";
        if (p.file.empty())
            html += "<div class=\"none\">no page</div>";
        else
            html += "<img src=\"" + Escape(p.file) + "\" width=\"" + std::to_string(p.width) +
                    "\" height=\"" + std::to_string(p.height) + "\" alt=\"" + Escape(p.className) + "\">";
        html += "</figure>\n";
    }
    html += "</body></html>\n";
    return html;
}
