#include <gtest/gtest.h>
#include <stdint.h>

#include <array>

#include "driver/swdrvl3_client.h"
#include "support/route_entries.h"

namespace quillon::test {
namespace {

using driver::UnitRouting;

constexpr uint8_t mac[6] = {2, 0, 0, 0, 0, 1};
constexpr uint8_t other_mac[6] = {2, 0, 0, 0, 0, 2};
constexpr uint8_t multicast_mac[6] = {1, 0, 0x5E, 0, 0, 1};
constexpr uint8_t no_mac[6] = {};

struct Swdrvl3InterfacesTest : Swdrvl3ClientTest {};

TEST_F(Swdrvl3InterfacesTest, HaveIdentifiers)
{
    const struct {
        uint32_t vlan;
        uint32_t virtual_router;
        const uint8_t *mac;
        uint32_t status;
        uint32_t id;
    } rows[] = {
        {1, 0, mac, done, 1},       {1, 0, other_mac, done, 2}, {1, 0, mac, exists, 1},
        {2, 0, mac, unresolved, 0}, {1, 1, mac, unresolved, 0}, {1, 0, multicast_mac, invalid, 0},
        {1, 0, no_mac, invalid, 0},
    };
    for (const auto &row : rows) {
        uint32_t id = 99;
        EXPECT_EQ(DEV_SWDRVL3_PMGR_CreateL3Interface(row.vlan, row.virtual_router, row.mac, &id), row.status);
        EXPECT_EQ(id, row.id);
    }
    expect_refused({
        {"another address", [] { return DEV_SWDRVL3_PMGR_DeleteL3Interface(1, 1, other_mac, 0); }},
        {"another VLAN", [] { return DEV_SWDRVL3_PMGR_DeleteL3Interface(1, 2, mac, 0); }},
        {"another virtual router", [] { return DEV_SWDRVL3_PMGR_DeleteL3Interface(1, 1, mac, 1); }},
        {"no interface", [] { return DEV_SWDRVL3_PMGR_DeleteL3Interface(3, 1, mac, 0); }},
    });
    HostRouteEntry host = host_entry("10.0.0.1", 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&host), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Interface(1, 1, mac, 0), 0) << "a route leads to it";
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetHostRoute(&host), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Interface(1, 1, mac, 0), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Interface(1, 1, mac, 0), 0);
}

TEST_F(Swdrvl3InterfacesTest, AreAsManyAsThereIsRoomFor)
{
    const auto create = [](uint32_t number, uint32_t &id) {
        const uint8_t address[6] = {2, 1, 0, 0, static_cast<uint8_t>(number >> 8), static_cast<uint8_t>(number)};
        return DEV_SWDRVL3_PMGR_CreateL3Interface(1, 0, address, &id) * 100 + DEV_SWDRVL3_PMGR_AddL3Mac(1, address);
    };
    uint32_t id = 0;
    for (uint32_t number = 1; number <= 512; ++number) {
        EXPECT_EQ(create(number, id), done);
        EXPECT_EQ(id, number);
    }
    EXPECT_EQ(create(513, id), full * 100 + full);
    EXPECT_EQ(id, 0U);
}

TEST_F(Swdrvl3InterfacesTest, RouteFramesToRouterMacs)
{
    const driver::VlanMac router{.vlan = 1, .mac = {2, 0, 0, 0, 0, 1}};
    const auto l3_bit = [&] { return model.lock()->chips.l3_interfaces.l3_bit(router); };
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetL3Bit(1, mac), 0);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddL3Mac(1, mac), done);
    EXPECT_EQ(l3_bit(), true);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddL3Mac(1, mac), exists);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddL3Mac(2, mac), unresolved);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddL3Mac(1, multicast_mac), invalid);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_UnSetL3Bit(1, mac), 1);
    EXPECT_EQ(l3_bit(), false);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetL3Bit(1, mac), 1);
    EXPECT_EQ(l3_bit(), true);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_UnSetL3Bit(1, other_mac), 0);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Mac(1, mac), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Mac(1, mac), 0);
}

TEST_F(Swdrvl3InterfacesTest, GoWithTheirVlan)
{
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(7), 1);
    uint32_t id = 0;
    EXPECT_EQ(DEV_SWDRVL3_PMGR_CreateL3Interface(7, 0, mac, &id), done);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_AddL3Mac(7, mac), done);
    HostRouteEntry host = host_entry("10.0.0.1", id);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_SetInetHostRoute(&host), done);
    EXPECT_EQ(DEV_SWDRV_PMGR_DestroyVlan(7), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteInetHostRoute(&host), 0);
    EXPECT_EQ(DEV_SWDRV_PMGR_CreateVlan(7), 1);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Interface(id, 7, mac, 0), 0);
    EXPECT_EQ(DEV_SWDRVL3_PMGR_DeleteL3Mac(7, mac), 0);
}

TEST_F(Swdrvl3InterfacesTest, AreRoutedBetweenByUnit)
{
    const struct {
        uint8_t (*enable)(uint32_t, uint32_t);
        uint8_t (*disable)(uint32_t, uint32_t);
        UnitRouting enabled;
    } rows[] = {
        {DEV_SWDRVL3_PMGR_EnableRouting, DEV_SWDRVL3_PMGR_DisableRouting, {true, true, false}},
        {DEV_SWDRVL3_PMGR_EnableIPv4Routing, DEV_SWDRVL3_PMGR_DisableIPv4Routing, {true, false, false}},
        {DEV_SWDRVL3_PMGR_EnableIPv6Routing, DEV_SWDRVL3_PMGR_DisableIPv6Routing, {false, true, false}},
        {DEV_SWDRVL3_PMGR_EnableUnicastStormProtect, DEV_SWDRVL3_PMGR_DisableUnicastStormProtect, {false, false, true}},
    };
    const auto units = [this] {
        const auto access = model.lock();
        return std::array{access->chips.routing.of_unit(1), access->chips.routing.of_unit(2)};
    };
    const UnitRouting off;
    for (const auto &row : rows) {
        EXPECT_EQ(units(), (std::array{off, off}));
        expect_checked(row.enable, {1, 0}, {3, 1});
        EXPECT_EQ(units(), (std::array{row.enabled, off}));
        EXPECT_EQ(row.enable(0, 0), 1) << "all units";
        EXPECT_EQ(units(), (std::array{row.enabled, row.enabled}));
        EXPECT_EQ(row.disable(1, 0), 1);
        EXPECT_EQ(units(), (std::array{off, row.enabled}));
        EXPECT_EQ(row.disable(0, 0), 1);
    }
}

}  // namespace
}  // namespace quillon::test
