#include "shell/frm_address.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"

namespace norvale {
namespace {

constexpr const char* kDelete = "2 Delete this Customer?";
constexpr const char* kFull = "No space left on device";
const std::string kNumber7Taken = Notice("Another customer has the number 7. Use a free one.");

class frmAddressTest : public DesktopTest {
 protected:
  // Opens the form and takes the steps, the last of which closes it. Returns whether it was left with OK.
  bool Walk(const std::vector<Step>& steps, CustomerFormMode mode = CustomerFormMode::Customer) {
    frmAddress form(program, mode);
    int result = -1;
    DriveModal<frmAddress>([&] { result = form.exec(); }, [&](QWidget&) { TakeSteps(steps, asked, [&] { return Seen(form); }); });
    return result == QDialog::Accepted;
  }

  // The first letters of the buttons, large where they may be used, and how many boxes may; then number and name. Nothing
  // once the form is closed.
  static std::string Seen(QWidget& form) {
    if (!form.isVisible()) return {};
    std::string seen;
    for (std::size_t i = 0; i < kCustomerButtons; ++i) {
      QWidget* const button = Find(form, ("cmdAddress_" + std::to_string(i)).c_str());
      if (button->isVisible()) seen += button->isEnabled() ? "DAFNPOC"[i] : "dafnpoc"[i];
    }
    std::size_t boxes = 0;
    for (std::size_t i = 0; i < kCustomerBoxes; ++i) boxes += Find(form, ("txtAddress_" + std::to_string(i)).c_str())->isEnabled() ? 1 : 0;
    const std::string number = Find(form, "txtAddress_0")->isVisible() ? Text(form, "txtAddress_0") + " " : std::string();
    return seen + std::to_string(boxes) + " " + number + Text(form, "txtAddress_1");
  }
};

TEST_F(frmAddressTest, EnterGoesThroughTheBoxesAndEachReachesItsField) {
  StoreSamples();
  EXPECT_TRUE(Walk(
      {{"<Backtab>1a2-3<Return>Hill Homes of the Upper Valley, Incorporated<Return>12 Hill St<Return>Suite 4<Return>",
        "DAFNPOC12 123 Hill Homes of the Upper Valley, Inc"},
       {"Dover\u03a9", "DAFNPOC12 123 Hill Homes of the Upper Valley, Inc",
        Notice("The customer file cannot hold that character. Type it another way.")},
       {"\u00e9<Return>DEX<Return>19901<Return>Pat Hill<Return>3025550100<Return>302-555-0101<Return>in May<Return>call<Alt+O>", ""}}));
  const CustomerRecord customer = OnDisk(123);
  EXPECT_THAT((std::vector{customer.CustomerName.Trimmed(), customer.AddressLine1.Trimmed(), customer.AddressLine2.Trimmed(),
                           customer.City.Trimmed(), customer.State.Trimmed(), customer.Zip.Trimmed(), customer.Contact.Trimmed(),
                           customer.Telephone.Trimmed(), customer.Fax.Trimmed(), customer.Note1.Trimmed(), customer.Note2.Trimmed()}),
              testing::ElementsAre("Hill Homes of the Upper Valley, Inc", "12 Hill St", "Suite 4", "Dover\xe9", "DE", "19901", "Pat Hill",
                                   "3025550100", "302-555-0101", "in May", "call"));
}

TEST_F(frmAddressTest, ANewCustomerIsThereAtOnceAndGoesWhereHisNumberBelongs) {
  StoreSamples();
  EXPECT_TRUE(Walk({{"<Alt+A>New Homes", "DAFNPOC12 13 New Homes"},
                    {"<Alt+A>", "DAFNPOC12 13 New Homes"},
                    {"<Backtab>7<Alt+O>", "DAFNPOC12 7 New Homes", kNumber7Taken},
                    {"<Ctrl+A>5<Alt+P>", "DAFNPOC12 3 Hill Homes"},
                    {"<Alt+A>Last<Alt+P>", "DAFNPOC12 12 Smith & Oakley"},
                    {"<Alt+O>", ""}}));
  // After a step he is on file, and Cancel takes nobody back.
  EXPECT_FALSE(Walk({{"<Alt+N>", "DAFNPOC12 13 Last"}, {"Typed in vain<Alt+C>", ""}}));
  EXPECT_EQ(CustomersOnDisk(),
            (Customers{{3, "Hill Homes"}, {5, "New Homes"}, {7, "Oak Street Builders"}, {12, "Smith & Oakley"}, {13, "Last"}}));
}

TEST_F(frmAddressTest, LeavingTheAddStateTakesTheCustomerBack) {
  StoreSamples();
  const auto plans = PlansOnDisk();
  const std::vector<Step> ways[] = {{{"<Alt+C>", ""}},
                                    {{"<Esc>", ""}},
                                    {{kCloseWindow, ""}},
                                    {{"<Alt+D>", "DAFNPOC12 3 Hill Homes", kDelete, Answer::Yes}, {"<Alt+C>", ""}}};
  for (const auto& way : ways) {
    std::vector<Step> steps = way;
    steps.insert(steps.begin(), {"<Alt+A>Typed in vain", "DAFNPOC12 13 Typed in vain"});
    EXPECT_FALSE(Walk(steps));
    EXPECT_EQ(CustomersOnDisk(), samples);
    EXPECT_EQ(PlansOnDisk(), plans);
    EXPECT_EQ(std::filesystem::file_size(scratch.Path() / CustomerDataFile), 4 * CustomerRecordSize);
  }
}

TEST_F(frmAddressTest, StepsSaveRenumberAndStopAtTheEnds) {
  StoreSamples();
  Walk({{"<Alt+P>", "DAFNPOC12 3 Hill Homes", Notice("Beginning Of File")},
        {"<Return><Return><Return>Dover<Alt+N>", "DAFNPOC12 7 Oak Street Builders"},
        {"<Backtab>20<Alt+P>", "DAFNPOC12 12 Smith & Oakley"},  // the one before number 20
        {"<Alt+N>", "DAFNPOC12 20 Oak Street Builders"},
        {"<Alt+N>", "DAFNPOC12 20 Oak Street Builders", Notice("End Of File")},
        {"<Alt+C>", ""}});
  EXPECT_EQ(OnDisk(3).City.Trimmed(), "Dover");
  EXPECT_EQ(CustomersOnDisk(), (Customers{{3, "Hill Homes"}, {12, "Smith & Oakley"}, {20, "Oak Street Builders"}}));
  EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "M"}, {3, "A"}, {20, "A"}, {20, "B"}, {20, "C"}}));
}

TEST_F(frmAddressTest, DeleteAsksHandsThePlansToTheCompanyAndLeavesAddAndCancel) {
  StoreSamples();
  Walk({{"<Alt+N>", "DAFNPOC12 7 Oak Street Builders"},
        {"<Alt+D>", "DAFNPOC12 7 Oak Street Builders", kDelete, Answer::No},
        {"<Alt+D>", "DAFNPOC12 3 Hill Homes", kDelete, Answer::Yes},  // the first that is left
        {"<Alt+O>", ""}});
  EXPECT_EQ(CustomersOnDisk(), (Customers{{3, "Hill Homes"}, {12, "Smith & Oakley"}}));
  EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "A"}, {0, "B"}, {0, "C"}, {0, "M"}, {3, "A"}}));
  Walk({{"<Alt+D>", "DAFNPOC12 12 Smith & Oakley", kDelete, Answer::Yes},
        {"<Alt+D>", "dAfnpoC0  ", kDelete, Answer::Yes},
        {"<Return>", "DAFNPOC12 1 "},
        {"First again<Alt+O>", ""}});
  EXPECT_EQ(CustomersOnDisk(), (Customers{{1, "First again"}}));
  EXPECT_EQ(OnDisk(0).CustomerName.Trimmed(), "") << "the company is nobody's customer";
}

TEST_F(frmAddressTest, FindsByNumberAndByPartOfANameAndStepsThroughTheMatches) {
  StoreSamples();
  const std::string oak = "DAFNPOC12 7 Oak Street Builders";
  const std::string smith = "DAFNPOC12 12 Smith & Oakley";
  Walk({{"<Return><Return><Return>Dover<Alt+F>", "dafnpoC2  "},  // what was typed before is saved
        {"12<Return>", smith},
        {"<Return><Return><Return>Salem<Alt+F>7<Tab>", oak},  // leaving a box with text looks up as well
        {"<Alt+F>8<Return>", oak, Notice("Customer number 8 is not on file.")},
        {"<Alt+F>0<Return>", oak, Notice("Customer number 0 is not on file.")},
        {"<Alt+F>99999<Return>", oak, Notice("Customer number 99999 is not on file.")},
        {"<Alt+F><Return>el|m<Return>", oak, Notice("End of file, Find unable to locate EL M")},
        {"<Alt+N>", smith},  // the next of all, not of a search
        {"<Alt+F><Return>oAk<Enter>", oak},
        {"<Alt+N>", smith},
        {"<Alt+N>", smith, Notice("No more OAK matches found. Try PREV.")},
        {"<Alt+P>", oak},
        {"<Alt+P>", oak, Notice("No more OAK matches found. Try NEXT.")},
        {"<Alt+F><Esc>", oak},
        {"<Alt+F><Return><Return>", oak},
        {"<Alt+F><Tab><Tab>", oak},
        {"<Alt+F><Tab>hill<Tab>", "DAFNPOC12 3 Hill Homes"},
        {"<Alt+O>", ""}});
  EXPECT_EQ(session.CustomerSearchText, "") << "the search is over with the form";
  EXPECT_EQ(OnDisk(3).City.Trimmed() + OnDisk(12).City.Trimmed(), "DoverSalem");
  EXPECT_EQ(CustomersOnDisk(), samples);
  const auto before = BytesOnDisk();
  frmAddress form(program, CustomerFormMode::Customer);
  ShowActive(form);
  Keys("<Alt+F>99");
  SlowClick(form, "cmdAddress_6");
  EXPECT_EQ(Seen(form), "DAFNPOC12 3 Hill Homes") << "Cancel looks nobody up";
  Keys("<Alt+F><Return>oak<Return><Alt+C>");
  EXPECT_EQ(session.CustomerSearchText, "");
  EXPECT_EQ(BytesOnDisk(), before);
}

// Deleting a customer moves plans, and one of them may be open.
TEST_F(frmAddressTest, PicksTheCustomerOfAnEstimateAndDeletesNone) {
  EXPECT_FALSE(Walk({{"Typed in vain", "dAFNPOC12 1 Typed in vain"}, {"<Esc>", ""}}, CustomerFormMode::Estimate));
  EXPECT_EQ(std::filesystem::file_size(scratch.Path() / CustomerIndexFile), 6U);
  StoreSamples();
  EXPECT_TRUE(Walk({{"<Alt+N>", "dAFNPOC12 7 Oak Street Builders"}, {"<Alt+O>", ""}}, CustomerFormMode::Estimate));
  EXPECT_EQ(session.CurrentCustomer.CustomerRecordNumber, 7);
}

TEST_F(frmAddressTest, TheCompanyHasNoNumberAndNoNeighbours) {
  StoreSamples();
  const auto before = BytesOnDisk();
  EXPECT_FALSE(Walk({{"Typed in vain", "OC11 Typed in vain"}, {"<Esc>", ""}}, CustomerFormMode::Company));
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_EQ(session.CustomerCursor, 7);
  EXPECT_EQ(session.CurrentCustomer.CustomerName.Trimmed(), "Hill Homes");
}

TEST_F(frmAddressTest, WhatCannotBeSavedIsToldByEachButtonAndStaysInItsBox) {
  StoreSamples();
  const auto before = BytesOnDisk();
  const std::string isReserved = "0 The value 0 is reserved,  use a number from 1 to 32767!|Norvale Help Notice";
  Walk({{"<Backtab>0<Alt+O>", "DAFNPOC12 0 Hill Homes", isReserved},
        {"<Ctrl+A>32767<Alt+N>", "DAFNPOC12 32767 Hill Homes", isReserved},
        {"<Ctrl+A>32768<Alt+F>", "DAFNPOC12 32768 Hill Homes", isReserved},
        {"<Ctrl+A>65539<Alt+A>", "DAFNPOC12 65539 Hill Homes", isReserved},  // 3 in the 16 bits of the file
        {"<Ctrl+A><Del><Alt+P>", "DAFNPOC12  Hill Homes", isReserved},
        {"<Ctrl+A>7<Alt+O>", "DAFNPOC12 7 Hill Homes", kNumber7Taken},
        {"<Esc>", ""}});
  disk.reason = kFull;
  const std::string isFull = FileErrorNotice(FileError("norvale.jnl", kFull));
  asked.Expect(kDelete, Answer::Yes);
  Walk({{"<Alt+D>", "DAFNPOC12 3 Hill Homes", FileErrorNotice(FileError("custfil", kFull))},
        {"<Ctrl+A>Dover Homes<Alt+O>", "DAFNPOC12 3 Dover Homes", isFull},
        {"<Alt+N>", "DAFNPOC12 3 Dover Homes", isFull},
        {"<Alt+F>", "DAFNPOC12 3 Dover Homes", isFull},
        {"<Alt+A>", "DAFNPOC12 3 Dover Homes", isFull},
        {"<Alt+C>", ""}});
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_EQ(session.CurrentCustomer, OnDisk(3));
}

TEST_F(frmAddressTest, ANewCustomerThatCannotBeTakenBackIsStillNew) {
  StoreSamples();
  CustomerForm form = OpenCustomerForm(program, CustomerFormMode::Customer);
  PressButton(program, form, CustomerButton::Add);
  disk.reason = kFull;
  asked.Expect(FileErrorNotice(FileError("abortfil", kFull)));
  PressButton(program, form, CustomerButton::Cancel);
  EXPECT_FALSE(form.isOpen);
  disk.reason.clear();
  EXPECT_EQ(CaptionOf(session, CustomerButton::Add), "ADD");
  Walk({{"", "DAFNPOC12 13 "}, {"<Alt+C>", ""}});
  EXPECT_EQ(CustomersOnDisk(), samples);
}

TEST_F(frmAddressTest, OnlyWhatWasTypedIsWritten) {
  CustomerRecord odd = Customer(2, "Odd");
  odd.Note2.bytes[0] = ' ';
  odd.Note2.bytes[1] = 'x';
  StoreAll(folder, std::array{odd}, {});
  const auto before = BytesOnDisk();
  EXPECT_TRUE(Walk({{"<Alt+O>", ""}}));
  CustomerForm form = OpenCustomerForm(program, CustomerFormMode::Customer);
  form.Text(CustomerBox::City) = "\u03a9";  // the box would not let one type it
  asked.Expect(Notice("City holds a character that the customer file cannot keep. Type it another way."));
  PressButton(program, form, CustomerButton::Ok);
  EXPECT_EQ(BytesOnDisk(), before);
  for (const char* const number : {"1", "32766"}) {
    EXPECT_TRUE(Walk({{(std::string("<Backtab>") + number + "<Return>K\u00f6ln \u20ac<Alt+O>").c_str(), ""}}));
    EXPECT_EQ(OnDisk(std::atoi(number)).CustomerName.Trimmed(), "K\xf6ln \x80");
    EXPECT_EQ(OnDisk(std::atoi(number)).Note2.Padded().substr(0, 2), " x");
  }
}

}  // namespace
}  // namespace norvale
