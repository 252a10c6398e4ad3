#pragma once

#include <string>
#include <string_view>

namespace orlo::simulator
{

/// A file descriptor that closes itself.
class FileDescriptor
{
public:
    /// Throws std::system_error with `what` when the descriptor is negative, by errno.
    FileDescriptor(int descriptor, const char* what);
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    int Get() const { return descriptor_; }

private:
    int descriptor_;
};

/// The terminals' end of a fresh pseudo-terminal in raw mode, with a symbolic link to the other
/// end. The link is removed with it, if it still is its own.
class PseudoTerminal
{
public:
    /// Replaces a symbolic link; anything else under that name is an error. Throws
    /// std::system_error.
    explicit PseudoTerminal(std::string link);
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal();

    int Descriptor() const { return master_.Get(); }

    /// Whether a program has the other end open.
    bool IsOpened() const;

    /// Everything that has arrived, without waiting. Nothing, too, when nobody has the other end
    /// open: it may be opened again at any time.
    std::string Read();

    /// Bytes that nobody is there to receive, or that the other end has no room for, are lost, as
    /// on a line.
    void Write(std::string_view bytes);

private:
    FileDescriptor master_;
    std::string slave_;
    std::string link_;
};

}  // namespace orlo::simulator
