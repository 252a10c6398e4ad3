#include "registry/terminal_type.h"

#include <algorithm>
#include <array>

namespace orlo
{

namespace
{

// Orlo and Sipa name their directions in words; their rows carry the events of the models without
// a rule of their own, because the direction is read by the registered model even when another
// one is picked in the window.
constexpr std::string_view kCommonEntry = "9:";
constexpr std::string_view kCommonExit = "12";

constexpr StatusAnswerLayout kNoAnswer{0, 0, 0, 0};
constexpr StatusAnswerLayout kWithWeekday{9, 10, 12, 8};
constexpr StatusAnswerLayout kWithoutWeekday{10, 11, 8, 9};

std::array<TerminalModel, 8> MakeModels()
{
    using T = TerminalType;
    using F = LinkFamily;
    using C = MemoryCounting;
    using W = StoreWait;
    using B = BellTelegram;
    using L = LineBehindCommand;
    const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
    // clang-format off
    return {{
        {T::Orlo,        text("Orlo"),        F::Object, QString(),     C::PointerPlusOne, kCommonEntry, kCommonExit, kNoAnswer,        0, W::Usual, B::Spaced, L::DtrPulsed, text("38400"), text("3"), text("7"), text("6"), text(",5")},
        {T::Sipa,        text("Sipa"),        F::Object, QString(),     C::PointerPlusOne, kCommonEntry, kCommonExit, kNoAnswer,        0, W::Usual, B::Spaced, L::Left,      QString(),     text("3"), QString(), QString(), QString()},
        {T::OrloII,      text("Orlo II"),     F::Serial, text("10000"), C::PointerPlusOne, kCommonEntry, kCommonExit, kWithWeekday,     9, W::Usual, B::Spaced, L::Left,      text("19200"), text("3"), QString(), QString(), QString()},
        {T::Strale,      text("Strale"),      F::Serial, text("2500"),  C::PointerPlusOne, kCommonEntry, kCommonExit, kWithWeekday,     6, W::Usual, B::Spaced, L::Left,      text("9600"),  text("3"), QString(), QString(), QString()},
        {T::StraleN,     text("Strale N"),    F::Serial, text("7000"),  C::PointerPlusOne, "9<",         "14",        kWithWeekday,     6, W::Usual, B::Spaced, L::Left,      text("9600"),  text("3"), QString(), QString(), QString()},
        {T::Lumo,        text("Lumo"),        F::Serial, text("10000"), C::PointerPlusOne, "9<",         "14",        kWithWeekday,     9, W::Usual, B::Spaced, L::Left,      text("19200"), text("3"), QString(), QString(), QString()},
        {T::OrloTre,     text("OrloTre"),     F::Serial, text("10000"), C::PointerIsCount, "98:",        "102",       kWithoutWeekday,  9, W::Long,  B::Dense,  L::Left,      text("19200"), text("3"), QString(), QString(), QString()},
        {T::SuperStrale, text("SuperStrale"), F::Serial, text("10000"), C::PointerPlusOne, "9<",         "14",        kWithoutWeekday,  9, W::Long,  B::Dense,  L::Left,      text("19200"), text("3"), QString(), QString(), QString()},
    }};
    // clang-format on
}

}  // namespace

std::span<const TerminalModel> TerminalModels()
{
    static const std::array<TerminalModel, 8> models = MakeModels();
    return models;
}

const TerminalModel* ModelByCode(int code)
{
    const auto models = TerminalModels();
    if (code < 1 || code > static_cast<int>(models.size())) return nullptr;
    return &models[static_cast<std::size_t>(code - 1)];
}

const TerminalModel* ModelByName(const QString& name)
{
    const auto models = TerminalModels();
    const auto found = std::find_if(models.begin(), models.end(),
                                    [&](const TerminalModel& model) { return model.name == name; });
    return found == models.end() ? nullptr : &*found;
}

char DirectionCode(int type_code, char event)
{
    const TerminalModel* model = ModelByCode(type_code);
    const std::string_view entry = model != nullptr ? model->entry_events : kCommonEntry;
    const std::string_view exit = model != nullptr ? model->exit_events : kCommonExit;
    if (entry.find(event) != std::string_view::npos) return '1';
    if (exit.find(event) != std::string_view::npos) return '2';
    return '0';
}

}  // namespace orlo
