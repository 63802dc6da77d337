#include "services/ReportTemplates.h"

#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

class ReportTemplates : public CountingWorld {
 protected:
  koru::Form chooser{screen, "frmReport"};
  ComboBox cmbReport{chooser, "cmbReport"};
  dteInvCounting data{recording};
};

TEST_F(ReportTemplates, The_templates_of_the_form_are_listed_and_the_first_is_chosen) {
  database.Execute(
      "insert into tblPelinReportTemplate (ID,FormTypeID,Title,FilePath) values "
      "(5,806,'شمارش','a.rpt'),(6,700,'رسيد','b.rpt'),"
      "(7,806,'مغايرتها','c.rpt')");
  data.SetConnectionString(database.ConnectionText());
  EXPECT_TRUE(FillReportTemplates(data, 806, cmbReport));
  ASSERT_EQ(cmbReport.Items().size(), 2U);
  // The database gives them in any order.
  const std::size_t differences = cmbReport.Items()[0].itemData == 7 ? 0 : 1;
  EXPECT_EQ(cmbReport.Items()[differences].text, "مغايرتها");
  EXPECT_EQ(cmbReport.Items()[differences].itemData, 7);
  EXPECT_EQ(cmbReport.Items()[1 - differences].itemData, 5);
  EXPECT_EQ(cmbReport.ListIndex(), 0);
  EXPECT_EQ(NewStatements(), Texts{"Select * from tblPelinReportTemplate where FormTypeID = 806"});
}

TEST_F(ReportTemplates, A_form_without_templates_has_an_empty_list) {
  data.SetConnectionString(database.ConnectionText());
  EXPECT_FALSE(FillReportTemplates(data, 806, cmbReport));
  EXPECT_TRUE(cmbReport.Items().empty());
  EXPECT_EQ(cmbReport.ListIndex(), -1);
}

}  // namespace
}  // namespace koru::test
