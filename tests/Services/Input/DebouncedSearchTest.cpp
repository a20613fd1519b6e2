#include "Services/Input/DebouncedSearch.h"

#include "Services/InputFixture.h"

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::chrono_literals;

class DebouncedSearchTest : public CommandTemplateStateTest {
protected:
    std::optional<DebouncedSearch> search{std::in_place, services};
};

TEST_F(DebouncedSearchTest, WaitsForNothingAtFirst)
{
    EXPECT_EQ(search->pendingQuery(), std::nullopt);
    search->cancel();
    EXPECT_EQ(search->pendingQuery(), std::nullopt);
}

TEST_F(DebouncedSearchTest, LaterOneTakesThePlaceOfTheWaitingOne)
{
    search->schedule(u"#work"_qs);
    pass(100ms);
    search->schedule(u"#tasks"_qs);
    EXPECT_EQ(search->pendingQuery(), u"#tasks"_qs);
    pass(299ms);
    EXPECT_THAT(takeEvents(), IsEmpty());
    pass(1ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
    EXPECT_EQ(search->pendingQuery(), std::nullopt);
}

TEST_F(DebouncedSearchTest, EmptyQueryIsOneToo)
{
    search->schedule(QString());
    EXPECT_EQ(search->pendingQuery(), QString());
}

TEST_F(DebouncedSearchTest, RunsThoughItIsGone)
{
    search->schedule(u"#work"_qs);
    search.reset();
    pass(300ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"1 notes"_qs));
}

TEST_F(DebouncedSearchTest, CancelledOneDoesntRun)
{
    search->schedule(u"#work"_qs);
    search->cancel();
    pass(300ms);
    EXPECT_THAT(takeEvents(), IsEmpty());
}

} // namespace

} // namespace jotwell
