#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>

class QPainter;

/// The look of everything around the text: colours by role, lengths at the interface scale, icons
/// and the style sheet made of them. Colours of the text itself belong to the colour scheme.
/// Interface thread only.
class Theme
{
public:
    enum class Role {
        // clang-format off
        Canvas, Panel, Row, Groove, Raise, RaiseEdge, Hover, TabHover, ToolHover, Pressed,
        MenuRow, MenuRowText, Tip, TipEdge, TipText, Handle, HandleHover, HandlePressed,
        Button, ButtonEdge, ButtonHover, ButtonHoverEdge, ButtonPressed, ButtonPressedEdge,
        ButtonText, DefaultButton, DefaultEdge, DefaultHover, DefaultPressed, White,
        Field, FieldEdge, FieldHoverEdge, CheckEdge, Lake, LakeText, Text, Strong, Soft, Faint,
        Disabled, Icon, IdleWaterline, IdleIcon, TabSeparator,
        StatusError, StatusWarning, ActivityIcon, TitleField, TitleFieldEdge,
        MarkError, MarkWarning, MarkInfo, MarkSearch, MatchOutline, NoResults,
        Page, DisabledField, DisabledEdge,
        // clang-format on
    };

    static QColor Color(Role role);
    static QColor WithAlpha(Role role, double alpha);

    /// A length of the design at the interface scale, in whole pixels, at least 1.
    static int Dp(double length);
    /// Width of separators and edges.
    static int Hairline();

    /// The line round what a key has given the focus to, inside `area`; `radius` in design pixels.
    static void DrawFocusEdge(QPainter& painter, const QRect& area, int radius);

    /// The icon of that name with every size there is; null when it is not built in.
    static QIcon Icon(const QString& name);
    /// The icon of that name in its own colours, `size` design pixels square; scaled down from the
    /// next larger picture, never up.
    static QPixmap Pixmap(const QString& name, int size, qreal ratio);
    /// Where the picture of that name stands that is the smallest of at least `pixels`, for rich
    /// text; the largest one when all are smaller, empty when there is none.
    static QString PicturePath(const QString& name, int pixels);
    /// The same shape in one colour.
    static QPixmap TintedPixmap(const QString& name, int size, const QColor& color, qreal ratio);

    /// Small capitals' stand-in for titles such as "OUTPUT": smaller, bolder, spaced.
    static QFont CaptionFont(const QFont& base);
    /// The size of hints and of the status bar.
    static QFont SmallFont(const QFont& base);

    /// The sheet with its tokens replaced: "@panel" by the colour, "@dp(4)" by a length with its
    /// unit, "@hair" by the width of a hairline, "@picture(check, 14)" by the picture of that name
    /// for that size. An unknown token is logged and left as it is.
    static QString StyleSheet();
};
