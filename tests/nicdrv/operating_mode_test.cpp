// The operating mode: any change from any mode, and nothing else.
#include "nicdrv/shared_record_fixture.h"

namespace quillon::test {
namespace {

class OperatingModeTest : public SharedRecordTest {};

TEST_F(OperatingModeTest, IsWhateverWasSetLast)
{
    struct {
        void (*set)();
        uint32_t mode;
    } const changes[] = {{DEV_NICDRV_OM_SetTransitionMode, 0},
                         {DEV_NICDRV_OM_EnterMasterMode, 1},
                         {DEV_NICDRV_OM_EnterSlaveMode, 2},
                         {DEV_NICDRV_OM_EnterTransitionMode, 0}};
    for (const auto &from : changes) {
        for (const auto &to : changes) {
            from.set();
            const RecordBytes before = record;

            to.set();

            EXPECT_EQ(DEV_NICDRV_OM_GetOperatingMode(), to.mode);
            RecordBytes expected = before;
            put_word(expected, 0, to.mode);
            EXPECT_EQ(record, expected);
        }
    }
    EXPECT_TRUE(platform().system_calls.empty()) << "it needs no semaphore";
}

TEST_F(OperatingModeTest, IsReadAsItStandsInTheRecord)
{
    for (const uint32_t mode : {0U, 1U, 2U, 3U, 0x94939291U}) {
        put_word(record, 0, mode);
        EXPECT_EQ(DEV_NICDRV_OM_GetOperatingMode(), mode);
    }
}

}  // namespace
}  // namespace quillon::test
