#include "registry/widgets/theme.h"

#include "registry/widgets/colours.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

namespace orlo
{

namespace
{

constexpr int kPortalTimeoutMilliseconds = 500;

// Answers of the portal to "color-scheme"; 0 is no preference.
constexpr uint kPreferDark = 1;
constexpr uint kPreferLight = 2;

uint PortalColourScheme()
{
    // Without an address the bus library would try to start a bus of its own.
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return 0;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return 0;
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
    const QDBusMessage answer = bus.call(question, QDBus::Block, kPortalTimeoutMilliseconds);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return 0;
    // The value comes in a variant inside a variant.
    QVariant value = answer.arguments().constFirst();
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

struct Shades {
    QRgb window, base, button, text, disabled, tooltip;
};

QPalette MakePalette(const Shades& shades)
{
    const QColor text(shades.text);
    const QColor disabled(shades.disabled);
    const QColor highlight(0x30, 0x8c, 0xc6);
    const QColor button(shades.button);
    QPalette palette(text, button, button.lighter(150), button.darker(150), button.darker(120),
                     text, Qt::white, QColor(shades.base), QColor(shades.window));
    palette.setColor(QPalette::AlternateBase, QColor(shades.base).darker(103));
    palette.setColor(QPalette::ToolTipBase, QColor(shades.tooltip));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, SecondaryOnBase(palette));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(shades.window));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, disabled);
    return palette;
}

QPalette LightPalette()
{
    return MakePalette({0xffefefef, 0xffffffff, 0xffefefef, 0xff000000, 0xffbebebe, 0xffffffdc});
}

QPalette DarkPalette()
{
    return MakePalette({0xff34373c, 0xff1d1e20, 0xff4b4f55, 0xfff0f0f0, 0xff85888c, 0xff4b4f55});
}

/// The desktop-independent style, in which the filled button shows that it has the focus and the
/// buttons of boxes bear words alone.
class Style : public QProxyStyle
{
public:
    Style() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        QProxyStyle::drawControl(element, option, painter, widget);
        const bool focused_filled = element == CE_PushButton &&
                                    (option->state & State_HasFocus) != 0 && widget != nullptr &&
                                    widget->property("primario").toBool();
        if (!focused_filled) return;
        // The style's own frame has nearly the colour of the button.
        painter->setPen(option->palette.color(QPalette::HighlightedText));
        painter->setBrush(Qt::NoBrush);
        constexpr int kInset = 2;
        painter->drawRect(option->rect.adjusted(kInset, kInset, -kInset - 1, -kInset - 1));
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

}  // namespace

void ApplyTheme(QApplication& application, Theme theme)
{
    auto* const style = new Style;
    style->setParent(&application);
    application.setStyle(style);
    if (theme == Theme::Desktop) {
        const uint scheme = PortalColourScheme();
        if (scheme == kPreferDark)
            theme = Theme::Dark;
        else if (scheme == kPreferLight)
            theme = Theme::Light;
    }
    if (theme == Theme::Light)
        QApplication::setPalette(LightPalette());
    else if (theme == Theme::Dark)
        QApplication::setPalette(DarkPalette());
}

}  // namespace orlo
