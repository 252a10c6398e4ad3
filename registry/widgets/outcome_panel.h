#pragma once

#include "registry/captions.h"
#include "registry/widgets/colours.h"
#include "registry/widgets/text_panel.h"

#include <optional>

namespace orlo
{

/// The outcome of a command: glyph and caption, elided where there is no room, or, in a panel with
/// wordWrap, broken into as many lines as it needs. A good or a failed outcome is announced to
/// assistive programs. While there is no outcome a standing remark is shown in its place.
class OutcomePanel : public TextPanel
{
    Q_OBJECT

public:
    explicit OutcomePanel(QWidget* parent = nullptr);

    /// Shows a line whose outcome its first words do not tell.
    void ShowLine(const QString& line, Outcome outcome);
    /// Shows a caption, which is its text(), and behind it what else is to be said; with a note a
    /// good outcome is a warning. The next caption is without.
    void ShowNoted(const QString& caption, const QString& note);
    /// Captions are bold unless this says otherwise; remarks never are.
    void SetBold(bool bold);
    /// The least room is that of `sample`.
    void SetRoom(const QString& sample);

    /// What is painted: text and note, or the remark.
    QString Caption() const;

    void SetRemark(const QString& remark);
    const QString& Remark() const { return remark_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// Lets assistive programs read the caption out.
    virtual void Alert();

private:
    Outcome ShownOutcome() const;
    QFont CaptionFont() const;
    int TextLeft() const;
    QSize RoomOf(const QString& caption) const;
    void TakeOutcome();
    void ShowCaption();
    void ShowToolTip();

    std::optional<Outcome> outcome_of_line_;
    bool bold_ = true;
    QString sample_ = kCommunicationOk;
    QString remark_;
    QString note_;
    QString next_note_;  ///< of the caption that is being set
};

}  // namespace orlo
