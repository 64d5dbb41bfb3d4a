#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <cstdio>

// Renders the rows of an icon table to PNG files: render-icons TABLE PACKAGE OWN OUTPUT

namespace {

struct Row
{
    QString name;
    QString drawing;
    QString colour;
    QString stroke;
};

/// A picture of an icon: what is added to its name, its pixels, and the size it is meant to have on
/// screen, which decides how thick its lines are.
struct Size
{
    const char* suffix;
    int pixels;
    int shownAt;
};

const Size SIZES[] = {
    {"", 16, 16},
    {"@2x", 32, 16},
    {"@3x", 48, 16},
    {"_14", 14, 14},
    {"_20", 20, 20},
    {"_24", 24, 24},
    {"_32", 32, 32},
    {"_40", 40, 40},
    {"_48", 48, 48},
    {"_64", 64, 64},
    {"_96", 96, 96},
};

constexpr int COLUMNS = 4;

QByteArray DefaultStroke(int shownAt)
{
    if (shownAt < 20)
        return "2";
    return shownAt < 28 ? "1.7" : "1.4";
}

bool Fail(const QString& text)
{
    std::fprintf(stderr, "render-icons: %s\n", qPrintable(text));
    return false;
}

bool ReadTable(const QString& path, QVector<Row>& rows)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return Fail(QStringLiteral("cannot read \"%1\"").arg(path));
    int lineNumber = 0;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        ++lineNumber;
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))
            || line.startsWith(QLatin1Char('[')))
            continue;
        const QStringList cells = line.split(QRegularExpression(QStringLiteral("\\s+")));
        if (cells.size() != COLUMNS)
            return Fail(QStringLiteral("%1:%2: expected %3 columns")
                            .arg(path)
                            .arg(lineNumber)
                            .arg(COLUMNS));
        rows.append({cells[0], cells[1], cells[2], cells[3]});
    }
    return true;
}

QByteArray Drawing(const QByteArray& source, const Row& row, int shownAt)
{
    QByteArray drawing = source;
    drawing.replace("currentColor", row.colour.toLatin1());
    const QByteArray stroke
        = row.stroke == QLatin1String("-") ? DefaultStroke(shownAt) : row.stroke.toLatin1();
    return drawing.replace("stroke-width=\"2\"", "stroke-width=\"" + stroke + '"');
}

bool RenderSize(const QByteArray& source, const Row& row, const Size& size, const QString& output)
{
    QSvgRenderer renderer(Drawing(source, row, size.shownAt));
    if (!renderer.isValid())
        return Fail(QStringLiteral("the drawing \"%1\" cannot be read").arg(row.drawing));
    QImage image(size.pixels, size.pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    const QString path
        = QStringLiteral("%1/%2%3.png").arg(output, row.name, QLatin1String(size.suffix));
    return image.save(path) || Fail(QStringLiteral("cannot write \"%1\"").arg(path));
}

bool RenderRow(const Row& row, const QString& package, const QString& own, const QString& output)
{
    const bool isOwn = row.drawing.startsWith(QLatin1String("own:"));
    const QString path = QStringLiteral("%1/%2.svg")
                             .arg(isOwn ? own : package, isOwn ? row.drawing.mid(4) : row.drawing);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Fail(QStringLiteral("row \"%1\": there is no drawing \"%2\"").arg(row.name, path));
    const QByteArray source = file.readAll();
    for (const Size& size : SIZES) {
        if (!RenderSize(source, row, size, output))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 5) {
        std::fprintf(stderr, "Usage: render-icons TABLE PACKAGE OWN OUTPUT\n");
        return 2;
    }
    QVector<Row> rows;
    if (!ReadTable(arguments[1], rows))
        return 1;
    for (const Row& row : qAsConst(rows)) {
        if (!RenderRow(row, arguments[2], arguments[3], arguments[4]))
            return 1;
    }
    return 0;
}
