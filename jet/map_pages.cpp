#include "jet/map_pages.h"

#include "jet/data_page_writer.h"
#include "jet/page_allocator.h"

namespace jet
{

namespace
{

constexpr std::uint32_t kMapOwner = 0;

bool HasRoom(PageFile& file, std::uint32_t number)
{
    const Page page = file.Read(number);
    return DataPage(file.Format(), page).Owner() == kMapOwner &&
           DataPageWriter(file.Format(), page).HasRoomFor(file.Format().map_row_bytes);
}

}  // namespace

RowPointer MapPages::Add()
{
    if (page_ == 0 || !HasRoom(file_, page_)) {
        page_ = PageAllocator(file_).Allocate(DataPageWriter::Empty(file_.Format(), kMapOwner));
    }
    DataPageWriter page(file_.Format(), file_.Read(page_));
    const RowPointer map{page_,
                         page.Add(PageImage(file_.Format().map_row_bytes, 0), RowState::Live)};
    file_.Write(page_, page.Take());
    return map;
}

}  // namespace jet
