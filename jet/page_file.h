#pragma once

#include "jet/bytes.h"
#include "jet/format.h"

#include <array>
#include <filesystem>
#include <memory>
#include <vector>

namespace jet
{

/// A page as it was when it was read. Copies share the bytes and keep them alive.
class Page
{
public:
    Page(std::uint32_t number, std::shared_ptr<const std::vector<std::uint8_t>> content)
        : number_(number), content_(std::move(content))
    {
    }

    std::uint32_t Number() const { return number_; }
    Bytes Content() const { return *content_; }

private:
    std::uint32_t number_;
    std::shared_ptr<const std::vector<std::uint8_t>> content_;
};

/// The file as a sequence of pages, read through a cache of at most kCachedPages of them.
class PageFile
{
public:
    /// Errors: those of Database::Open.
    explicit PageFile(const std::filesystem::path& path);
    ~PageFile();
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;

    const jet::Format& Format() const { return *format_; }
    std::uint32_t PageCount() const { return page_count_; }

    /// Any page but the header. Errors: kDamagedFile when there is no such page, kDiskError.
    Page Read(std::uint32_t number);

private:
    static constexpr std::size_t kCachedPages = 256;

    void Recognise();
    std::size_t ReadAt(std::uint8_t* to, std::size_t size, std::uint64_t at) const;

    int descriptor_;
    const jet::Format* format_ = nullptr;
    std::uint32_t page_count_ = 0;
    // Page n is kept in slot n modulo the number of slots, if at all.
    std::array<std::unique_ptr<Page>, kCachedPages> cache_;
};

}  // namespace jet
