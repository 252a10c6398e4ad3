#include "registry/widgets/glyphs.h"

#include "registry/captions.h"

#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace orlo
{

namespace
{

/// The glyphs are drawn on a square of 16 units.
constexpr double kUnits = 16;

void PaintTick(QPainter& painter, const QColor& colour, const QPen& mark)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(0, 0, kUnits, kUnits));
    painter.setPen(mark);
    painter.drawPolyline(QPolygonF{{4.2, 8.4}, {7, 11.2}, {11.8, 5.2}});
}

void PaintCross(QPainter& painter, const QColor& colour, const QPen& mark)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(1, 1, 14, 14), 2.5, 2.5);
    painter.setPen(mark);
    painter.drawLine(QPointF(5, 5), QPointF(11, 11));
    painter.drawLine(QPointF(11, 5), QPointF(5, 11));
}

void PaintTriangle(QPainter& painter, const QColor& colour, const QPen& mark)
{
    QPainterPath triangle({8, 1.5});
    triangle.lineTo(15.2, 14.5);
    triangle.lineTo(0.8, 14.5);
    triangle.closeSubpath();
    painter.setPen(QPen(colour, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(colour);
    painter.drawPath(triangle);
    painter.setPen(mark);
    painter.drawLine(QPointF(8, 6), QPointF(8, 9.6));
    painter.drawPoint(QPointF(8, 12.3));
}

}  // namespace

Outcome OutcomeOf(const QString& caption)
{
    static const QStringList good = {
        kModemLogIn,
        kModemLogOff,
        QStringLiteral("Ricezione dati OK"),
        QStringLiteral("Spedizione dati OK"),
        QStringLiteral("Trasmissione Dati Ok"),
        QStringLiteral("salvato nel registro"),
        QStringLiteral("suoneria salvata"),
    };
    static const QStringList failures = {
        QStringLiteral("Errore"),
        QStringLiteral("Impossibile"),
        QStringLiteral("Avvio non completato"),
        QStringLiteral("non salvat"),
    };
    // "Comunicazione OK, senza le modifiche non salvate" is a warning.
    static const QRegularExpression acquired(
        QStringLiteral("^Comunicazione OK, (nessuna|\\d+) timbratur"));
    static const QRegularExpression all_answered(QStringLiteral("^risposte (\\d+) su \\1$"));
    if (caption.isEmpty()) return Outcome::None;
    if (caption.endsWith(kCommunicationOk) || good.contains(caption) ||
        acquired.match(caption).hasMatch() || all_answered.match(caption).hasMatch())
        return Outcome::Good;
    const auto begins = [&caption](const QString& words) { return caption.startsWith(words); };
    return std::ranges::any_of(failures, begins) ? Outcome::Failure : Outcome::Warning;
}

void PaintOutcomeGlyph(QPainter& painter, const QRectF& place, Outcome outcome,
                       const QPalette& palette)
{
    const QColor colour = OutcomeColour(outcome, palette);
    const QPen mark(palette.color(QPalette::Base), 1.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / kUnits, place.height() / kUnits);
    switch (outcome) {
        case Outcome::Good:
            PaintTick(painter, colour, mark);
            break;
        case Outcome::Warning:
            PaintTriangle(painter, colour, mark);
            break;
        case Outcome::Failure:
            PaintCross(painter, colour, mark);
            break;
        case Outcome::None:
            break;
    }
    painter.restore();
}

}  // namespace orlo
