// Renders the drawings of the skin to the picture files that the program reads at run time.
//
//     render_art ART_DIR OUT_DIR
//
// ART_DIR/manifest.txt names one drawing per line. A picture is written in two sizes, "name.ext" and
// "name@2x.ext". An icon is one file with all listed sizes; sizes with a drawing of their own have lines of
// their own:
//
//     play.svg       play.jpg       48 49
//     quillmere.svg  quillmere.ico  32 48 64
//
// Unchanged files are not rewritten, so that nothing that depends on them is rebuilt. Needs no display. On
// the first invalid drawing or unwritable file, exits with 1 and an error message.

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <vector>

#include <jpeglib.h>

namespace {

/// An error that stops the rendering; its text is shown to the user.
class ArtError : public std::runtime_error {
public:
    explicit ArtError(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// The icons so far: the images of each file in the order of the manifest; the first is the default.
using Icons = std::map<QString, std::vector<QImage>>;

/// The SVG reader only warns of errors in a drawing; here they make it invalid.
QString svgComplaint;
void keepComplaint(QtMsgType, const QMessageLogContext&, const QString& text) {
    svgComplaint = text;
}

QByteArray readDrawing(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ArtError(path + ": " + file.errorString());
    QByteArray svg = file.readAll();
    for (const char* element : {"<text", "<image", "<filter", "<mask", "<clipPath", "<style"}) {
        // The reader silently ignores these, or, for text, needs the fonts of a desktop.
        if (svg.contains(element))
            throw ArtError(path + ": " + element + "> is not for the drawings of the skin");
    }
    return svg;
}

/// Draws the file at this size in pixels. Formats without transparency get a white background.
QImage draw(const QString& svgPath, QSize pixels, bool transparent) {
    svgComplaint.clear();
    QSvgRenderer svg(readDrawing(svgPath));
    if (!svg.isValid() || !svgComplaint.isEmpty())
        throw ArtError(svgPath + ": not a drawing that can be rendered. " + svgComplaint);
    const QSizeF drawn = svg.viewBoxF().size();
    if (qAbs(drawn.width() * pixels.height() - drawn.height() * pixels.width()) > 0.5)
        throw ArtError(QString("%1: drawn for %2 x %3, which does not scale to %4 x %5")
                           .arg(svgPath)
                           .arg(drawn.width())
                           .arg(drawn.height())
                           .arg(pixels.width())
                           .arg(pixels.height()));
    QImage image(pixels, transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    image.fill(transparent ? Qt::transparent : Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    svg.render(&painter, QRectF(QPointF(), QSizeF(pixels)));
    return image;
}

/// JPEG at the finest quantisation and with full colour resolution, so that white stays white up to the
/// edges.
QByteArray jpegBytes(const QImage& picture) {
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors); // on an error, exits with a message, as intended here
    jpeg_create_compress(&jpeg);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &buffer, &size);
    jpeg.image_width = static_cast<JDIMENSION>(rgb.width());
    jpeg.image_height = static_cast<JDIMENSION>(rgb.height());
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 100, TRUE);
    jpeg.dct_method = JDCT_ISLOW;
    jpeg.optimize_coding = TRUE;
    jpeg.comp_info[0].h_samp_factor = 1;
    jpeg.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&jpeg, TRUE);
    for (int y = 0; y < rgb.height(); ++y) {
        auto* row = const_cast<JSAMPROW>(rgb.constScanLine(y));
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    QByteArray bytes(reinterpret_cast<const char*>(buffer), static_cast<qsizetype>(size));
    jpeg_destroy_compress(&jpeg);
    std::free(buffer);
    return bytes;
}

QByteArray pictureBytes(const QImage& picture, const QByteArray& format) {
    if (format == "jpg")
        return jpegBytes(picture);
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    if (!writer.write(picture))
        throw ArtError("cannot write " + QString(format) + ": " + writer.errorString());
    return buffer.data();
}

/// An ICO file: a directory of 16 bytes per image, then the images as PNG. A size of 256 is stored as 0.
QByteArray iconBytes(const std::vector<QImage>& images) {
    QByteArray directory, data;
    const auto put = [&directory](quint32 value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            directory.append(static_cast<char>(value >> (8 * i) & 0xff));
    };
    const auto start = 6 + 16 * static_cast<quint32>(images.size());
    put(0, 2); // reserved
    put(1, 2); // an icon
    put(static_cast<quint32>(images.size()), 2);
    for (const QImage& image : images) {
        const QByteArray png = pictureBytes(image, "png");
        put(static_cast<quint32>(image.width()) & 0xff, 1);
        put(static_cast<quint32>(image.height()) & 0xff, 1);
        put(0, 2);  // no palette; reserved
        put(1, 2);  // planes
        put(32, 2); // bits per pixel
        put(static_cast<quint32>(png.size()), 4);
        put(start + static_cast<quint32>(data.size()), 4);
        data += png;
    }
    return directory + data;
}

void writeIfChanged(const QString& path, const QByteArray& bytes) {
    QFile old(path);
    if (old.open(QIODevice::ReadOnly) && old.readAll() == bytes)
        return;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw ArtError(path + ": " + file.errorString());
}

/// Processes one line of the manifest: writes its pictures, or adds its images to an icon.
void renderLine(const QStringList& fields, const QDir& art, const QDir& out, Icons& icons) {
    if (fields.size() < 3)
        throw ArtError("wants a drawing, an output and its size");
    std::vector<int> sizes;
    for (const QString& field : fields.mid(2)) {
        sizes.push_back(field.toInt());
        if (sizes.back() < 1 || sizes.back() > 4096)
            throw ArtError("\"" + field + "\" is not a size in pixels");
    }
    const QString svg = art.filePath(fields[0]);
    const QString& output = fields[1];
    const QString base = output.section('.', 0, -2), format = output.section('.', -1).toLower();
    if (format == "ico") {
        for (const int side : sizes) {
            if (side > 256)
                throw ArtError("an icon holds no image above 256 pixels");
            icons[output].push_back(draw(svg, {side, side}, true));
        }
        return;
    }
    if (sizes.size() != 2)
        throw ArtError("a picture has a width and a height");
    for (const int scale : {1, 2}) {
        const QImage picture = draw(svg, QSize(sizes[0], sizes[1]) * scale, format == "png");
        const QString name = scale == 1 ? output : base + "@2x." + output.section('.', -1);
        writeIfChanged(out.filePath(name), pictureBytes(picture, format.toLatin1()));
    }
}

void renderAll(const QDir& art, const QDir& out) {
    if (!out.mkpath("."))
        throw ArtError(out.path() + ": cannot be made");
    QFile manifest(art.filePath("manifest.txt"));
    if (!manifest.open(QIODevice::ReadOnly))
        throw ArtError(manifest.fileName() + ": " + manifest.errorString());
    Icons icons;
    const QStringList lines = QString::fromUtf8(manifest.readAll()).split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].section('#', 0, 0).simplified();
        if (line.isEmpty())
            continue;
        try {
            renderLine(line.split(' '), art, out, icons);
        } catch (const ArtError& error) {
            throw ArtError(QString("%1:%2: %3").arg(manifest.fileName()).arg(i + 1).arg(error.what()));
        }
    }
    for (const auto& [name, images] : icons)
        writeIfChanged(out.filePath(name), iconBytes(images));
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv); // finds the plugins that write the formats
    if (argc != 3) {
        std::fprintf(stderr, "usage: render_art ART_DIR OUT_DIR\n");
        return 1;
    }
    qInstallMessageHandler(keepComplaint);
    try {
        renderAll(QDir(argv[1]), QDir(argv[2]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "render_art: %s\n", error.what());
        return 1;
    }
    return 0;
}
