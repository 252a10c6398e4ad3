#include "jet/database.h"

// The window's tests have cursors of their own and open no file.
namespace jet
{

struct Database::Impl {
};

[[gnu::weak]] Database::~Database() = default;

}  // namespace jet
