#include "window/chrome/Theme.h"

#include "plugin/Logger.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"

#include <QFile>
#include <QFontInfo>
#include <QHash>
#include <QPainter>
#include <QPixmapCache>
#include <QRegularExpression>

#include <cmath>

namespace {

struct RoleRow
{
    Theme::Role role;
    const char* token; ///< in the style sheet, without "@"
    QRgb color; ///< 0: taken from the colour scheme
};

using R = Theme::Role;

// clang-format off
constexpr RoleRow ROLES[] = {
    {R::Canvas,            "canvas",              0},
    {R::Panel,             "panel",               0},
    {R::Row,               "row",                 0},
    {R::Groove,            "groove",              0xff181818},
    {R::Raise,             "raise",               0xff2d2d2d},
    {R::RaiseEdge,         "raise-edge",          0xff454545},
    {R::Hover,             "hover",               0xff2f2f2f},
    {R::TabHover,          "tab-hover",           0xff2c2c2c},
    {R::ToolHover,         "tool-hover",          0xff353535},
    {R::Pressed,           "pressed",             0xff202020},
    {R::MenuRow,           "menu-row",            0xff3d4645},
    {R::MenuRowText,       "menu-row-text",       0xffffffff},
    {R::Tip,               "tip",                 0xff323232},
    {R::TipEdge,           "tip-edge",            0xff565656},
    {R::TipText,           "tip-text",            0xffe6e6e6},
    {R::Handle,            "handle",              0xff4a4a4a},
    {R::HandleHover,       "handle-hover",        0xff626262},
    {R::HandlePressed,     "handle-pressed",      0xff7a7a7a},
    {R::Button,            "button",              0xff3a3a3a},
    {R::ButtonEdge,        "button-edge",         0xff505050},
    {R::ButtonHover,       "button-hover",        0xff444444},
    {R::ButtonHoverEdge,   "button-hover-edge",   0xff5c5c5c},
    {R::ButtonPressed,     "button-pressed",      0xff2c2c2c},
    {R::ButtonPressedEdge, "button-pressed-edge", 0xff484848},
    {R::ButtonText,        "button-text",         0xffe4e4e4},
    {R::DefaultButton,     "default-button",      0xff2c7a73},
    {R::DefaultEdge,       "default-edge",        0xff3a928a},
    {R::DefaultHover,      "default-hover",       0xff308078},
    {R::DefaultPressed,    "default-pressed",     0xff235f5a},
    {R::White,             "white",               0xffffffff},
    {R::Field,             "field",               0xff1b1b1b},
    {R::FieldEdge,         "field-edge",          0xff707070},
    {R::FieldHoverEdge,    "field-hover-edge",    0xff8a8a8a},
    {R::CheckEdge,         "check-edge",          0xff767676},
    {R::Lake,              "lake",                0xff4fb8b0},
    {R::LakeText,          "lake-text",           0xff7ad5cd},
    {R::Text,              "text",                0xffd4d4d4},
    {R::Strong,            "strong",              0xfff0f0f0},
    {R::Soft,              "soft",                0xffa6a6a6},
    {R::Faint,             "faint",               0xff949494},
    {R::Disabled,          "disabled",            0xff6e6e6e},
    {R::Icon,              "icon",                0xffc4c4c4},
    {R::IdleWaterline,     "idle-waterline",      0xff5f5f5f},
    {R::IdleIcon,          "idle-icon",           0xff777777},
    {R::TabSeparator,      "tab-separator",       0xff1f1f1f},
    {R::StatusError,       "status-error",        0xffff6b6b},
    {R::StatusWarning,     "status-warning",      0xffdfe527},
    {R::ActivityIcon,      "activity-icon",       0xff8f8f8f},
    {R::TitleField,        "title-field",         0xff303030},
    {R::TitleFieldEdge,    "title-field-edge",    0xff3e3e3e},
    {R::MarkError,         "mark-error",          0xfff44646},
    {R::MarkWarning,       "mark-warning",        0xffdfe527},
    {R::MarkInfo,          "mark-info",           0xff569cd6},
    {R::MarkSearch,        "mark-search",         0xffa65a2c},
    {R::MatchOutline,      "match-outline",       0xffc08a5c},
    {R::NoResults,         "no-results",          0xffff8f85},
    {R::Page,              "page",                0xff2a2a2a},
    {R::DisabledField,     "disabled-field",      0xff242424},
    {R::DisabledEdge,      "disabled-edge",       0xff383838},
};
// clang-format on

constexpr bool RowsFollowRoles()
{
    int expected = 0;
    for (const RoleRow& row : ROLES) {
        if (static_cast<int>(row.role) != expected++)
            return false;
    }
    return true;
}
static_assert(RowsFollowRoles(), "a role is the index of its row");

/// Surfaces that the user can colour.
QColor SchemeColor(Theme::Role role)
{
    switch (role) {
    case R::Panel: return ColorSettings::sideBarBaseColor;
    case R::Row: return ColorSettings::sideBarHighlightColor;
    default:
        return ColorSettings::GetCodeEditorFormat(ColorSettings::PLAIN_TEXT, false)
            .background()
            .color();
    }
}

double Scale()
{
    return Settings::customScaleValue > 0.0 ? Settings::customScaleValue : 1.0;
}

constexpr int PLAIN_SIZE = 16; // of the file whose name says no size
constexpr int ICON_SIZES[] = {14, PLAIN_SIZE, 20, 24, 32, 40, 48, 64, 96};

QString IconPath(const QString& name, int size)
{
    return size == PLAIN_SIZE ? QStringLiteral(":/te2_icons/%1.png").arg(name)
                              : QStringLiteral(":/te2_icons/%1_%2.png").arg(name).arg(size);
}

/// The picture drawn for the next size from `pixels` up, scaled down to it. Null without one.
QImage ScaledDown(const QString& name, int pixels)
{
    QImage image;
    for (const int size : ICON_SIZES) {
        const QImage picture(IconPath(name, size));
        if (!picture.isNull())
            image = picture;
        if (!image.isNull() && image.width() >= pixels)
            break;
    }
    if (image.isNull() || image.width() <= pixels)
        return image;
    return image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QIcon LoadIcon(const QString& name)
{
    QIcon icon;
    for (const int size : ICON_SIZES) {
        const QString path = IconPath(name, size);
        if (QFile::exists(path))
            icon.addFile(path);
    }
    return icon;
}

QString Pixels(int length)
{
    return QStringLiteral("%1px").arg(length);
}

QString TokenValue(const QRegularExpressionMatch& match)
{
    if (match.capturedLength(1) > 0)
        return Pixels(Theme::Dp(match.capturedRef(1).toDouble()));
    if (match.capturedLength(2) > 0) {
        return QStringLiteral("url(%1)").arg(
            Theme::PicturePath(match.captured(2), Theme::Dp(match.capturedRef(3).toInt())));
    }
    const QString token = match.captured(4);
    if (token == QLatin1String("hair"))
        return Pixels(Theme::Hairline());
    for (const RoleRow& row : ROLES) {
        if (token == QLatin1String(row.token))
            return Theme::Color(row.role).name();
    }
    Logger::Error(QStringLiteral("Unknown style sheet token: %1").arg(token));
    return match.captured();
}

} // namespace

QColor Theme::Color(Role role)
{
    const RoleRow& row = ROLES[static_cast<int>(role)];
    return row.color == 0 ? SchemeColor(role) : QColor::fromRgb(row.color);
}

QColor Theme::WithAlpha(Role role, double alpha)
{
    QColor color = Color(role);
    color.setAlphaF(alpha);
    return color;
}

int Theme::Dp(double length)
{
    return qMax(1, static_cast<int>(std::lround(length * Scale())));
}

int Theme::Hairline()
{
    return qMax(1, static_cast<int>(std::floor(Scale())));
}

void Theme::DrawFocusEdge(QPainter& painter, const QRect& area, int radius)
{
    const double half = Hairline() / 2.0;
    const double round = radius > 0 ? Dp(radius) : 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Color(Role::Lake), Hairline()));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(area).adjusted(half, half, -half, -half), round, round);
    painter.restore();
}

QString Theme::PicturePath(const QString& name, int pixels)
{
    QString largest;
    for (const int size : ICON_SIZES) {
        const QString path = IconPath(name, size);
        if (!QFile::exists(path))
            continue;
        largest = path;
        if (size >= pixels)
            break;
    }
    return largest;
}

QIcon Theme::Icon(const QString& name)
{
    // Shared: the toolkit caches what an icon paints for each icon that was made, not for each
    // picture, and rows ask for theirs whenever they change.
    static QHash<QString, QIcon> icons;
    const auto known = icons.constFind(name);
    return known != icons.constEnd() ? *known : *icons.insert(name, LoadIcon(name));
}

QPixmap Theme::Pixmap(const QString& name, int size, qreal ratio)
{
    const int pixels = qRound(Dp(size) * ratio);
    const QString key = QStringLiteral("te2/%1/%2").arg(name).arg(pixels);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap::fromImage(ScaledDown(name, pixels));
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QPixmap Theme::TintedPixmap(const QString& name, int size, const QColor& color, qreal ratio)
{
    QPixmap pixmap = Pixmap(name, size, ratio);
    if (pixmap.isNull())
        return pixmap;
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    return pixmap;
}

QFont Theme::CaptionFont(const QFont& base)
{
    constexpr double SPACING = 0.06; // of the size
    QFont font = SmallFont(base);
    font.setWeight(QFont::DemiBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, SPACING * QFontInfo(font).pixelSize());
    return font;
}

QFont Theme::SmallFont(const QFont& base)
{
    constexpr double SHARE = 11.0 / 12.0;
    QFont font = base;
    if (font.pixelSize() > 0)
        font.setPixelSize(qMax(1, qRound(font.pixelSize() * SHARE)));
    else
        font.setPointSizeF(font.pointSizeF() * SHARE);
    return font;
}

QString Theme::StyleSheet()
{
    QFile file(QStringLiteral(":/te2_style/tarnwick.qss"));
    if (!file.open(QIODevice::ReadOnly)) {
        Logger::Error(QStringLiteral("Failed to load the style sheet."));
        return {};
    }
    const QString sheet = QString::fromUtf8(file.readAll());
    static const QRegularExpression TOKEN(
        QStringLiteral("@(?:dp\\(([0-9.]+)\\)|picture\\((\\w+), (\\d+)\\)|([a-z-]+))"));
    QString expanded;
    int end = 0;
    for (auto matches = TOKEN.globalMatch(sheet); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        expanded += sheet.midRef(end, match.capturedStart() - end) + TokenValue(match);
        end = match.capturedEnd();
    }
    return expanded + sheet.midRef(end);
}
