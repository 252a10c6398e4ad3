#pragma once

#include <QString>

#include <string_view>

namespace orlo
{

/// A record, for a person to read, of what went over the lines.
class LineTrace
{
public:
    virtual ~LineTrace() = default;

    virtual void Sent(int port, std::string_view bytes) = 0;
    virtual void Received(int port, std::string_view bytes) = 0;
    virtual void Note(const QString& text) = 0;
};

/// The trace of a run that was not asked for one.
class NoTrace : public LineTrace
{
public:
    void Sent(int, std::string_view) override {}
    void Received(int, std::string_view) override {}
    void Note(const QString&) override {}
};

}  // namespace orlo
