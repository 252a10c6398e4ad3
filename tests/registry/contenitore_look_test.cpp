#include "registry/widgets/colours.h"
#include "tests/registry/contenitore_fixture.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSet>

#include <algorithm>

namespace orlo::contenitore_test
{

namespace
{

/// The largest contrast of any pixel with the commonest colour of a picture: how its words read.
double WordContrast(const QImage& picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) ++counts[picture.pixel(x, y)];
    QRgb ground = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        if (it.value() > counts.value(ground)) ground = it.key();
    double largest = 1;
    for (const QRgb pixel : counts.keys())
        largest = std::max(largest, ContrastRatio(QColor(pixel), QColor(ground)));
    return largest;
}

/// Contrast of the lightest ground of a filled area with its white words: each row of a gradient
/// has a ground of its own, the one at the left edge.
double LeastContrastOfGround(const QImage& picture, const QColor& words)
{
    double least = 21;
    for (int y = 0; y < picture.height(); ++y)
        least = std::min(least, ContrastRatio(QColor(picture.pixel(0, y)), words));
    return least;
}

}  // namespace

class ContenitoreLook : public ContenitoreTest
{
protected:
    void AllTypes()
    {
        for (const TerminalModel& model : TerminalModels())
            Register(Terminal(static_cast<int>(model.type), model.type, "Porta"));
        TerminalRecord inactive = Terminal(9, TerminalType::Orlo, "Mensa");
        inactive.Attivo = kFalse;
        Register(inactive);
        Open();
    }
    QImage Picture(const QRect& place)
    {
        return window.grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    }
    QRect PlaceOf(const QWidget& control)
    {
        return {control.mapTo(&window, QPoint()), control.size()};
    }
};

TEST_F(ContenitoreLook, EveryControlIsFoundByItsName)
{
    for (const char* name : {"ListaTerminali",
                             "LabelTerminale",
                             "Abilitazione",
                             "FrameAcquisizione",
                             "PannelloCapacita",
                             "PannelloTimbrature",
                             "PannelloFree",
                             "PannelloAcquisire",
                             "LabelTimbrature",
                             "NomeFile",
                             "PannelloPercentuale",
                             "PanelTentativi",
                             "cmdAcquisisce",
                             "PannelloFunzioni",
                             "OraTerminale",
                             "DataTerminale",
                             "Sistema",
                             "cmdLeggeOra",
                             "LabelOrologio",
                             "LabelUltimoComando",
                             "cmdSincro",
                             "cmdTest",
                             "PannelloStato",
                             "PannelloVersione",
                             "cmdMonitorTimbrature",
                             "cmdSuonerie",
                             "cmdComandi",
                             "CampoDescrizione",
                             "ComboTipoTerminale",
                             "Modalita_0",
                             "Modalita_1",
                             "Modalita_2",
                             "Funzionamento_0",
                             "Funzionamento_1",
                             "Funzionamento_2",
                             "FrameFunzionamento",
                             "CheckModem",
                             "NumeroTelefono",
                             "CodiceImpianto",
                             "ComboPorta",
                             "ComboVelocita",
                             "ComboRitardo",
                             "Tentativi",
                             "ScrollTentativi",
                             "Priorita",
                             "ScrollPriorita",
                             "Priorita2",
                             "ScrollPriorita2",
                             "FrameFormatoBadge",
                             "cmdRiceveCard",
                             "cmdTrasmetteCard",
                             "NomeCard",
                             "InizioImpianto",
                             "LenImpianto",
                             "InizioBadge",
                             "LenBadge",
                             "InizioAzienda",
                             "LenAzienda",
                             "LenCard",
                             "BidirectionalCheck",
                             "cmdAggiorna",
                             "Verde",
                             "Rosso",
                             "cmdLogIn",
                             "cmdLogOff",
                             "PannelloComunicazione",
                             "PannelloTentativi",
                             "cmdUscita",
                             "LabelPriorita1",
                             "LabelPriorita2",
                             "LabelRitardo",
                             "LabelLenCard",
                             "LabelAzienda",
                             "LabelNomeCard",
                             "LabelImpianto",
                             "LabelRegistro",
                             "LabelAvviso",
                             "MisuratoreMemoria",
                             "cmdSfoglia",
                             "LabelScarto",
                             "DisegnoBadge",
                             "LabelModifiche",
                             "LabelEsc"})
        EXPECT_NE(window.findChild<QWidget*>(QString::fromUtf8(name)), nullptr) << name;
    EXPECT_EQ(window.objectName(), QStringLiteral("Contenitore"));
}

TEST_F(ContenitoreLook, NoTwoMnemonicsAreAlike)
{
    QSet<QKeySequence> taken;
    int mnemonics = 0;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const auto* caption = qobject_cast<const QLabel*>(control);
        if (caption != nullptr && caption->buddy() == nullptr) continue;
        const QKeySequence key = QKeySequence::mnemonic(control->property("text").toString());
        if (key.isEmpty()) continue;
        EXPECT_FALSE(taken.contains(key)) << control->objectName().toStdString();
        taken.insert(key);
        ++mnemonics;
    }
    EXPECT_EQ(mnemonics, 19);
}

TEST_F(ContenitoreLook, EveryInputHasAnAccessibleName)
{
    int inputs = 0;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const bool part =
            control->parentWidget()->inherits("QComboBox") || control->window() != &window;
        if (part || (control->focusPolicy() & Qt::TabFocus) == 0) continue;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
        ++inputs;
    }
    EXPECT_GE(inputs, 40) << "counted too few";
}

TEST_F(ContenitoreLook, EveryFieldHasACaptionThatNamesIt)
{
    QSet<const QWidget*> captioned;
    for (const QLabel* caption : window.findChildren<QLabel*>())
        if (caption->buddy() != nullptr) captioned.insert(caption->buddy());
    for (const char* name :
         {"ListaTerminali", "NomeFile", "CampoDescrizione", "ComboTipoTerminale", "NumeroTelefono",
          "CodiceImpianto", "ComboPorta", "ComboVelocita", "Tentativi", "ComboRitardo", "Priorita",
          "Priorita2", "NomeCard", "LenCard", "InizioImpianto", "InizioBadge", "InizioAzienda"})
        EXPECT_TRUE(captioned.contains(&Control(name))) << name;
}

TEST_F(ContenitoreLook, NothingMovesBetweenTypesAndStates)
{
    AllTypes();
    const char* const watched[] = {
        "ListaTerminali",     "PannelloTimbrature",    "cmdAcquisisce", "cmdTest",
        "CampoDescrizione",   "ComboVelocita",         "Tentativi",     "LenBadge",
        "cmdAggiorna",        "PannelloComunicazione", "cmdLogOff",     "cmdUscita",
        "LabelUltimoComando", "cmdLeggeOra",           "LabelScarto",   "NumeroTelefono",
        "Abilitazione"};
    std::map<std::string, QRect> places;
    QSize smallest;
    const auto look = [&](const std::string& when) {
        QCoreApplication::processEvents();
        for (const char* name : watched) {
            QRect place = PlaceOf(Control(name));
            // Between these two the room goes to whoever has something to say.
            if (name == std::string_view("PannelloComunicazione")) place.setWidth(0);
            if (name == std::string_view("LabelUltimoComando")) place.setLeft(place.right());
            const auto [found, first] = places.emplace(name, place);
            EXPECT_EQ(found->second, place) << name << ' ' << when;
        }
        if (smallest.isEmpty()) smallest = window.minimumSizeHint();
        EXPECT_EQ(window.minimumSizeHint(), smallest) << when;
    };
    for (int position = 0; position < 9; ++position) {
        Select(position);
        look("line " + std::to_string(position));
    }
    const QString longest =
        QStringLiteral("Risposta che non sta in nessun pannello della finestra");
    for (TextPanel* panel : window.findChildren<TextPanel*>()) panel->setText(longest);
    look("long texts");
    Control("Verde").show();
    look("line open");
    window.RunCommand(&Control<QAbstractButton>("cmdAcquisisce"), longest, EscapeUse::Heeded,
                      [&] { look("busy"); });
    Select(0);
    Write("Tentativi", "9");
    look("modified");
    Press("cmdAggiorna");
    look("saved");
}

TEST_F(ContenitoreLook, FitsTheSmallestSize)
{
    AllTypes();
    Select(0);
    EXPECT_LE(window.minimumSizeHint().width(), window.minimumWidth());
    EXPECT_LE(window.minimumSizeHint().height(), window.minimumHeight());
}

TEST_F(ContenitoreLook, FilledButtonAndSelectedLineReadInLightAndDark)
{
    AllTypes();
    Select(0);
    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        ApplyTheme(*qApp, theme);
        QCoreApplication::processEvents();
        const QRect button = PlaceOf(Control("cmdAcquisisce")).adjusted(4, 4, -4, -4);
        EXPECT_GE(LeastContrastOfGround(Picture(button), Qt::white), 4.5);
        EXPECT_GE(WordContrast(Picture(button)), 4.5);

        const QRect row = List().visualItemRect(List().item(0)).adjusted(3, 3, -3, -3);
        const QRect line(List().viewport()->mapTo(&window, row.topLeft()), row.size());
        EXPECT_GE(LeastContrastOfGround(Picture(line), Qt::white), 4.5);
        EXPECT_GE(WordContrast(Picture(line)), 4.5);
    }
    ApplyTheme(*qApp, Theme::Light);
}

TEST_F(ContenitoreLook, ProgressReadsInLightAndDark)
{
    AllTypes();
    Select(0);
    auto& bar = Control<QProgressBar>("PannelloPercentuale");
    bar.setValue(100);
    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        ApplyTheme(*qApp, theme);
        QCoreApplication::processEvents();
        const QRect chunk = PlaceOf(bar).adjusted(4, 3, -4, -3);
        EXPECT_GE(LeastContrastOfGround(Picture(chunk), Qt::white), 4.5);
    }
    ApplyTheme(*qApp, Theme::Light);
}

TEST_F(ContenitoreLook, FocusOnTheFilledButtonIsSeenInLightAndDark)
{
    AllTypes();
    Select(0);
    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        ApplyTheme(*qApp, theme);
        QCoreApplication::processEvents();
        const QRect button = PlaceOf(Control("cmdAcquisisce"));
        const QPoint frame(2, button.height() / 2);
        List().setFocus();
        EXPECT_NE(Picture(button).pixelColor(frame), QColor(Qt::white));
        Control("cmdAcquisisce").setFocus();
        EXPECT_EQ(Picture(button).pixelColor(frame), QColor(Qt::white));
    }
    ApplyTheme(*qApp, Theme::Light);
}

TEST_F(ContenitoreLook, ButtonsHaveRoomBesideTheirWords)
{
    AllTypes();
    int buttons = 0;
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
        const int words = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
        EXPECT_GE(button->width(), words + 24) << button->objectName().toStdString();
        ++buttons;
    }
    EXPECT_EQ(buttons, 13);
    EXPECT_EQ(Control("cmdLeggeOra").width(), Control("cmdSincro").width());
    EXPECT_EQ(Control("cmdTest").width(), Control("cmdSincro").width());
}

TEST_F(ContenitoreLook, OpensNoLargerThanTheScreen)
{
    EXPECT_LE(window.width(), window.screen()->availableSize().width());
    const int title_bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    EXPECT_LE(window.height() + title_bar, window.screen()->availableSize().height());
    EXPECT_LT(window.screen()->availableSize().width(), 1280) << "this screen tries nothing";
}

TEST_F(ContenitoreLook, InALargeFontTheTitleBarHasRoomToo)
{
    QFont large = window.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    window.setFont(large);
    const int title_bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    EXPECT_EQ(window.minimumHeight() + title_bar, window.screen()->availableSize().height());
}

TEST_F(ContenitoreLook, ThePageIsNotCutOnAScreenWithRoomForIt)
{
    // Small enough for the screen of the tests.
    QFont small = window.font();
    small.setPointSizeF(4);
    window.setFont(small);
    AllTypes();
    const int page = Control("PaginaTerminale").minimumSizeHint().width();
    ASSERT_LT(page + List().minimumSizeHint().width() + 42,
              window.screen()->availableSize().width());
    window.resize(window.minimumSize());
    QCoreApplication::processEvents();
    EXPECT_GE(Control("ScorrimentoTerminale").width(), page);
}

TEST_F(ContenitoreLook, VersionHasTheRoomUnderTheTestButton)
{
    AllTypes();
    EXPECT_EQ(PlaceOf(Control("PannelloVersione")).right(), PlaceOf(Control("cmdTest")).right());
    EXPECT_GE(PlaceOf(Control("PannelloVersione")).top(), PlaceOf(Control("cmdTest")).bottom());
}

TEST_F(ContenitoreLook, SecondaryTextsFollowTheTheme)
{
    const auto secondary = [this] {
        return Control("LabelPercentuale").palette().color(QPalette::Active, QPalette::WindowText);
    };
    const QColor light = secondary();
    ApplyTheme(*qApp, Theme::Dark);
    QCoreApplication::processEvents();
    EXPECT_GE(ContrastRatio(secondary(), window.palette().color(QPalette::Window)), 5.3);
    EXPECT_NE(secondary(), light);
    ApplyTheme(*qApp, Theme::Light);
    QCoreApplication::processEvents();
    EXPECT_EQ(secondary(), light);
}

TEST_F(ContenitoreLook, RoomsFollowTheFont)
{
    const int before = Control("ComboVelocita").sizeHint().width();
    QFont large = window.font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    window.setFont(large);
    EXPECT_GT(Control("ComboVelocita").sizeHint().width(), before);
    EXPECT_GT(Control("LabelTerminale").font().pointSizeF(), large.pointSizeF() * 1.4);
}

TEST_F(ContenitoreLook, TabGoesThroughTheWindowInReadingOrder)
{
    RegisterOrlo(1);
    Open();
    Select(0);
    List().setFocus();
    const char* const order[] = {"Abilitazione",  "NomeFile",         "cmdSfoglia",
                                 "cmdAcquisisce", "CampoDescrizione", "ComboTipoTerminale",
                                 "Modalita_0",    "Funzionamento_0",  "ComboPorta",
                                 "ComboVelocita", "Tentativi",        "ComboRitardo",
                                 "Priorita",      "Priorita2",        "CheckModem"};
    for (const char* name : order) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget()->objectName(), QString::fromUtf8(name));
    }
}

}  // namespace orlo::contenitore_test
