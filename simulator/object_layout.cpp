#include "simulator/object_layout.h"

#include "simulator/digits.h"

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kTexts = 12;
constexpr int kMost = 99;

/// Numbers one after the other; once one of them was none, the whole is none.
class Numbers
{
public:
    explicit Numbers(std::span<const std::string> texts) : texts_(texts) {}

    int Next()
    {
        const std::optional<int> value = NumberOf(texts_.front());
        texts_ = texts_.subspan(1);
        sound_ = sound_ && value && *value <= kMost;
        return value.value_or(0);
    }
    bool Sound() const { return sound_; }

private:
    std::span<const std::string> texts_;
    bool sound_ = true;
};

}  // namespace

std::vector<std::string> LayoutTexts(const ObjectLayout& layout)
{
    std::vector<std::string> texts = {layout.name, std::to_string(layout.length),
                                      layout.bidirectional ? "1" : "0"};
    for (const BadgeField& field : layout.fields)
        for (const int value : {field.start, field.length, field.value})
            texts.push_back(std::to_string(value));
    return texts;
}

std::optional<ObjectLayout> LayoutOf(std::span<const std::string> texts)
{
    if (texts.size() != kTexts) return std::nullopt;
    Numbers numbers(texts.subspan(1));
    ObjectLayout layout;
    layout.name = texts.front();
    layout.length = numbers.Next();
    layout.bidirectional = numbers.Next() != 0;
    for (BadgeField& field : layout.fields) {
        field.start = numbers.Next();
        field.length = numbers.Next();
        field.value = numbers.Next();
    }
    return numbers.Sound() ? std::optional(layout) : std::nullopt;
}

}  // namespace orlo::simulator
