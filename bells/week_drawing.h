#pragma once

#include "bells/ring_marks.h"

#include <QStringList>
#include <QWidget>

#include <vector>

namespace orlo
{

/// The week as a timetable: a column a day, the hours downwards, a mark for each ring whose length
/// is in proportion to its duration. The marks of the chosen ring are coloured and have a triangle.
class WeekDrawing : public QWidget
{
    Q_OBJECT

public:
    explicit WeekDrawing(QWidget* parent = nullptr);

    /// How many columns there are; with headings they are painted above them.
    void SetDays(int days, const QStringList& headings = {});
    void Show(std::vector<RingMark> marks);
    const std::vector<RingMark>& Marks() const { return marks_; }
    /// The column of that day is tinted; -1 none.
    void ShadeDay(int day);

    /// Room of the hours left of the first column.
    int HoursRoom() const;
    /// The places of the marks, in their order. Marks that follow each other closely are moved
    /// apart as far as to be seen one by one.
    std::vector<QRectF> Places() const;

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

signals:
    void MarkChosen(int day, int ring);
    /// A click beside all marks.
    void DayChosen(int day);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF Grid() const;
    QRectF Column(int day) const;
    int DayAt(const QPointF& place) const;
    /// The mark nearest to a place in its column, nullptr when all are too far.
    const RingMark* MarkAt(const QPointF& place) const;
    QString WordsOf(const RingMark& mark) const;
    void PaintHours(QPainter& painter) const;
    void PaintDays(QPainter& painter) const;
    void PaintMark(QPainter& painter, const RingMark& mark, const QRectF& place) const;

    int days_ = 7;
    QStringList headings_;
    std::vector<RingMark> marks_;
    int shaded_ = -1;
};

}  // namespace orlo
