#include "engine/FilterTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace pedl {
namespace {

TEST(FilterTables, OneRateHasOneTableAndUnusedTablesDoNotPileUp) {
    const auto used = TrigonometryTable::forRate(48000.0);
    std::vector<std::weak_ptr<const TrigonometryTable>> unused;
    for (int i = 0; i < 20; ++i)
        unused.push_back(TrigonometryTable::forRate(50000.0 + i));
    EXPECT_EQ(TrigonometryTable::forRate(48000.0), used);
    EXPECT_GT(std::ranges::count_if(unused, [](const auto& table) { return table.expired(); }), 10);
}

} // namespace
} // namespace pedl
