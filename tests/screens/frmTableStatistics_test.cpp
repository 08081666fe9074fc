#include "engine/screens/frmTableStatistics.h"

#include "screen_test.h"

namespace vellumark::test {

namespace {

using FrmTableStatisticsTest = ScreenTest;

TEST_F(FrmTableStatisticsTest, ShowsTheCountsOfTheChosenTable) {
    ReadShop();
    frmTableStatistics form(nullptr);
    form.show();
    const auto shown = [&] {
        std::string counts;
        for (const char* field : {"txtNumCol", "txtIdent", "txtFK", "txtMandatory", "txtOptional", "txtChar",
                                  "txtNumeric", "txtBoolean", "txtDate", "txtTime", "txtTstamp", "txtBlob"})
            counts += TextOf(form, field) + " ";
        return counts;
    };
    EXPECT_EQ(TextOf(form, "txtDatabase"), "Shop");
    EXPECT_EQ(TextOf(form, "lblTABQty"), "6");
    EXPECT_EQ(TextOf(form, "cboTable"), "Customer");
    EXPECT_EQ(shown(), "8 1 0 5 3 3 2 1 1 0 1 0 ");
    Choose(form, "cboTable", "Payment");
    EXPECT_EQ(shown(), "6 1 1 4 2 1 3 0 1 1 0 0 ");
    Click(form, "cmdCancel");
    EXPECT_FALSE(form.isVisible());

    MakeSchema("Empty");
    frmTableStatistics empty(nullptr);
    EXPECT_EQ(TextOf(empty, "lblTABQty"), "0");
    EXPECT_EQ(TextOf(empty, "txtNumCol"), "0");
}

}  // namespace

}  // namespace vellumark::test
