#include "drafts/write/documents.h"
#include "drafts/write/image_size.h"
#include "drafts/write/zip_file.h"
#include "rtf/read/picture.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace drafts {

namespace {

using rtf::CharFormat;
using rtf::Document;
using rtf::TextView;

constexpr std::string_view head = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr std::string_view officeRelations =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr int emusInTwip = 635; // the unit of pictures

// Text of XML; what XML cannot hold is left out.
std::string escaped(TextView text) {
    base::Text kept;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool high = unit >= 0xD800 && unit <= 0xDBFF;
        const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            kept += unit;
            kept += text[++i];
        } else if (unit >= u' ' && !high && !low && unit < 0xFFFE) {
            kept += unit;
        }
    }
    std::string out;
    for (const char byte : base::toUtf8(kept)) {
        if (byte == '&')
            out += "&amp;";
        else if (byte == '<')
            out += "&lt;";
        else if (byte == '>')
            out += "&gt;";
        else if (byte == '"')
            out += "&quot;";
        else
            out += byte;
    }
    return out;
}

std::string element(std::string_view name, std::string_view value) {
    return "<w:" + std::string(name) + " w:val=\"" + std::string(value) + "\"/>";
}

std::string hex(const rtf::Colour& colour) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    for (const unsigned part : {colour.red, colour.green, colour.blue}) {
        out += digits[part >> 4U];
        out += digits[part & 15U];
    }
    return out;
}

// The number behind a word of RTF; `otherwise` when it is not there.
int numberOf(std::string_view words, std::string_view word, int otherwise) {
    for (auto at = words.find(word); at != std::string_view::npos; at = words.find(word, at + 1)) {
        std::size_t end = at + word.size();
        int value = 0;
        while (end < words.size() && words[end] >= '0' && words[end] <= '9' && value < 100'000)
            value = value * 10 + (words[end++] - '0');
        if (end > at + word.size())
            return value;
    }
    return otherwise;
}

// Writes the parts of the file; the order of elements is that of the standard.
class DocxWriter {
public:
    explicit DocxWriter(const Document& document) : document_(document) {}

    Exported write() {
        const std::string body = paragraphs();
        ZipFile zip;
        zip.add("[Content_Types].xml", contentTypes());
        zip.add("_rels/.rels", relations({relation("rId1", "officeDocument", "word/document.xml", false)}));
        zip.add("word/document.xml", documentPart(body));
        zip.add("word/_rels/document.xml.rels", relations(relations_));
        zip.add("word/styles.xml", stylesPart());
        zip.add("word/numbering.xml", numberingPart());
        for (const auto& [name, bytes] : media_)
            zip.add("word/" + name, bytes);
        for (const rtf::Section& section : document_.sections)
            losses_.headers = losses_.headers || !section.headers.empty();
        return {zip.finish(), losses_};
    }

private:
    using Relations = std::vector<std::string>;

    static std::string relation(const std::string& id, std::string_view type, const std::string& target,
                                bool external) {
        return "<Relationship Id=\"" + id + "\" Type=\"" + std::string(officeRelations) + '/' +
               std::string(type) + "\" Target=\"" + target +
               (external ? "\" TargetMode=\"External\"/>" : "\"/>");
    }

    static std::string relations(const Relations& all) {
        std::string out(head);
        out += "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
        for (const std::string& one : all)
            out += one;
        return out + "</Relationships>";
    }

    std::string addRelation(std::string_view type, const std::string& target, bool external) {
        const std::string id = "rId" + std::to_string(relations_.size() + 1);
        relations_.push_back(relation(id, type, target, external));
        return id;
    }

    static std::string contentTypes() {
        constexpr std::string_view word = "application/vnd.openxmlformats-officedocument.wordprocessingml.";
        std::string out(head);
        out += "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
               "<Default Extension=\"rels\" "
               "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
               "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
               "<Default Extension=\"png\" ContentType=\"image/png\"/>"
               "<Default Extension=\"jpeg\" ContentType=\"image/jpeg\"/>";
        for (const auto& [part, type] :
             {std::pair{"document", "document.main"}, {"styles", "styles"}, {"numbering", "numbering"}})
            out += std::string("<Override PartName=\"/word/") + part + ".xml\" ContentType=\"" +
                   std::string(word) + type + "+xml\"/>";
        return out + "</Types>";
    }

    std::string documentPart(const std::string& body) const {
        std::string out(head);
        out += "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\" "
               "xmlns:r=\"" +
               std::string(officeRelations) +
               "\" xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\""
               " xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\""
               " xmlns:pic=\"http://schemas.openxmlformats.org/drawingml/2006/picture\"><w:body>";
        out += body;
        const std::string& page = document_.pageWords;
        const auto twips = [&](std::string_view word, int otherwise) {
            return std::to_string(numberOf(page, word, otherwise)) + '"';
        };
        out += "<w:sectPr><w:pgSz w:w=\"" + twips("\\paperw", 12240) + " w:h=\"" + twips("\\paperh", 15840) +
               "/><w:pgMar w:top=\"" + twips("\\margt", 1440) + " w:right=\"" + twips("\\margr", 1800) +
               " w:bottom=\"" + twips("\\margb", 1440) + " w:left=\"" + twips("\\margl", 1800) +
               " w:header=\"720\" w:footer=\"720\" w:gutter=\"0\"/></w:sectPr></w:body></w:document>";
        return out;
    }

    static std::string stylesPart() {
        std::string out(head);
        return out +
               "<w:styles "
               "xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"><w:docDefaults>"
               "<w:rPrDefault><w:rPr><w:sz w:val=\"24\"/><w:szCs w:val=\"24\"/></w:rPr></w:rPrDefault>"
               "<w:pPrDefault><w:pPr><w:spacing w:before=\"0\" "
               "w:after=\"0\"/></w:pPr></w:pPrDefault></w:docDefaults>"
               "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name "
               "w:val=\"Normal\"/></w:style>"
               "</w:styles>";
    }

    static std::string numberingPart() {
        std::string out(head);
        return out + "<w:numbering xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
                     "<w:abstractNum w:abstractNumId=\"0\"><w:multiLevelType w:val=\"singleLevel\"/><w:lvl "
                     "w:ilvl=\"0\">"
                     "<w:start w:val=\"1\"/><w:numFmt w:val=\"bullet\"/><w:lvlText "
                     "w:val=\"\xE2\x80\xA2\"/><w:lvlJc "
                     "w:val=\"left\"/></w:lvl></w:abstractNum><w:num w:numId=\"1\"><w:abstractNumId "
                     "w:val=\"0\"/></w:num>"
                     "</w:numbering>";
    }

    std::string paragraphs() {
        addRelation("styles", "styles.xml", false);
        addRelation("numbering", "numbering.xml", false);
        std::string out;
        std::size_t at = 0;
        std::size_t run = 0;
        for (const rtf::Paragraph& paragraph : document_.paragraphs) {
            out += "<w:p>" + properties(document_.paragraphFormats[paragraph.format],
                                        document_.formats[document_.runs[run + paragraph.runs - 1].format]);
            for (const std::size_t end = run + paragraph.runs; run < end; ++run) {
                out += runPart(document_.runs[run],
                               TextView(document_.text).substr(at, document_.runs[run].length));
                at += document_.runs[run].length;
            }
            out += "</w:p>";
        }
        return out;
    }

    // Of a paragraph; its end has the look of its last letters, as what is typed there would have.
    std::string properties(const rtf::ParagraphFormat& format, const CharFormat& end) const {
        static constexpr std::array<std::string_view, 4> alignments = {"left", "right", "center", "both"};
        std::string out = "<w:pPr>";
        out += format.pageBreakBefore ? "<w:pageBreakBefore/>" : "";
        out += format.bullet ? "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>" : "";
        const auto twips = [](std::int32_t value) { return std::to_string(value) + '"'; };
        out += "<w:spacing w:before=\"" + twips(std::max(format.spaceBefore, 0)) + " w:after=\"" +
               twips(std::max(format.spaceAfter, 0)) + "/>";
        out += "<w:ind w:left=\"" + twips(format.leftIndent) + " w:right=\"" + twips(format.rightIndent) +
               (format.firstIndent < 0 ? " w:hanging=\"" + twips(-format.firstIndent)
                                       : " w:firstLine=\"" + twips(format.firstIndent)) +
               "/>";
        out += element("jc", alignments[static_cast<std::size_t>(format.alignment)]);
        return out + properties(end) + "</w:pPr>";
    }

    std::string properties(const CharFormat& format) const {
        const std::string font = escaped(
            document_.fonts.empty() ? TextView(u"Arial") : TextView(document_.fonts[format.font].name));
        std::string out = "<w:rPr><w:rFonts w:ascii=\"" + font + "\" w:hAnsi=\"" + font + "\" w:eastAsia=\"" +
                          font + "\" w:cs=\"" + font + "\"/>";
        out += format.bold ? "<w:b/><w:bCs/>" : "";
        out += format.italic ? "<w:i/><w:iCs/>" : "";
        out += format.capitals ? "<w:caps/>" : "";
        out += format.smallCapitals ? "<w:smallCaps/>" : "";
        out += format.strike ? "<w:strike/>" : "";
        out += format.hidden ? "<w:vanish/>" : "";
        out += format.colour.automatic ? "" : element("color", hex(format.colour));
        out += element("sz", std::to_string(format.size)) + element("szCs", std::to_string(format.size));
        out += format.underline ? element("u", "single") : "";
        out += format.background.automatic
                   ? ""
                   : "<w:shd w:val=\"clear\" w:color=\"auto\" w:fill=\"" + hex(format.background) + "\"/>";
        if (format.raised != rtf::Raised::No)
            out += element("vertAlign", format.raised == rtf::Raised::Super ? "superscript" : "subscript");
        return out + "</w:rPr>";
    }

    std::string runPart(const rtf::Run& run, TextView text) {
        const CharFormat& format = document_.formats[run.format];
        std::string inner;
        if (run.kept != rtf::none) {
            inner = picture(document_.kept[run.kept]);
        } else {
            while (!text.empty()) {
                const auto end = std::min(
                    text.find_first_of(base::Text{rtf::lineBreak, rtf::pageBreak, u'\t'}), text.size());
                if (end > 0)
                    inner += "<w:t xml:space=\"preserve\">" + escaped(text.substr(0, end)) + "</w:t>";
                if (end < text.size())
                    inner += text[end] == u'\t'            ? "<w:tab/>"
                             : text[end] == rtf::pageBreak ? "<w:br w:type=\"page\"/>"
                                                           : "<w:br/>";
                text.remove_prefix(std::min(end + 1, text.size()));
            }
        }
        if (inner.empty())
            return inner;
        std::string out = "<w:r>" + properties(format) + inner + "</w:r>";
        if (format.link == rtf::none)
            return out;
        const base::Text& target = document_.links[format.link];
        const std::string place = !target.empty() && target[0] == u'#'
                                      ? "w:anchor=\"" + escaped(TextView(target).substr(1))
                                      : "r:id=\"" + addRelation("hyperlink", escaped(target), true);
        return "<w:hyperlink " + place + "\">" + out + "</w:hyperlink>";
    }

    // A picture in the line; nothing for a kept range without one.
    std::string picture(const std::string& range) {
        const std::optional<rtf::Picture> found = rtf::pictureOf(range);
        if (!found) {
            (range.find("\\pict") != std::string::npos ? losses_.pictures : losses_.objects) = true;
            return {};
        }
        const ImageSize size = found->width > 0 && found->height > 0 ? ImageSize{found->width, found->height}
                                                                     : sizeInTwips(found->bytes);
        const std::string number = std::to_string(media_.size() + 1);
        const std::string name =
            "media/image" + number + (found->kind == rtf::PictureKind::Png ? ".png" : ".jpeg");
        media_.emplace_back(name, found->bytes);
        const std::string id = addRelation("image", name, false);
        const std::string width = std::to_string(std::int64_t{size.width} * emusInTwip);
        const std::string height = std::to_string(std::int64_t{size.height} * emusInTwip);
        return "<w:drawing><wp:inline distT=\"0\" distB=\"0\" distL=\"0\" distR=\"0\"><wp:extent cx=\"" +
               width + "\" cy=\"" + height + "\"/><wp:docPr id=\"" + number + "\" name=\"Picture " + number +
               "\"/><a:graphic><a:graphicData "
               "uri=\"http://schemas.openxmlformats.org/drawingml/2006/picture\"><pic:pic>"
               "<pic:nvPicPr><pic:cNvPr id=\"" +
               number + "\" name=\"Picture " + number +
               "\"/><pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip r:embed=\"" + id +
               "\"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm><a:off x=\"0\" "
               "y=\"0\"/><a:ext cx=\"" +
               width + "\" cy=\"" + height +
               "\"/></a:xfrm><a:prstGeom "
               "prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData>"
               "</a:graphic></wp:inline></w:drawing>";
    }

    const Document& document_;
    Relations relations_;
    std::vector<std::pair<std::string, std::string>> media_;
    Losses losses_;
};

} // namespace

Exported docx(const rtf::Document& document) {
    return DocxWriter(document).write();
}

} // namespace drafts
