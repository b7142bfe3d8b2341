#include "shell/customer_form.h"

#include "data/customer_file.h"
#include "desktop/desktop_fixture.h"

namespace norvale {
namespace {

constexpr CustomerButton kAllButtons[] = {CustomerButton::Delete,   CustomerButton::Add, CustomerButton::Find,  CustomerButton::Next,
                                          CustomerButton::Previous, CustomerButton::Ok,  CustomerButton::Cancel};

class CustomerFormTest : public DesktopTest {
 protected:
  CustomerForm Open(CustomerFormMode mode = CustomerFormMode::Customer) { return OpenCustomerForm(program, mode); }
  void Press(CustomerForm& form, CustomerButton button) { PressButton(program, form, button); }
  // The letters of the buttons that may be used, in their order.
  static std::string Open(const CustomerForm& form) {
    constexpr std::string_view letters = "DAFNPOC";
    std::string open;
    for (std::size_t i = 0; i < kCustomerButtons; ++i)
      if (IsEnabled(form, kAllButtons[i])) open += letters[i];
    return open;
  }
  static std::string OpenBoxes(const CustomerForm& form) {
    std::string open;
    for (std::size_t i = 0; i < kCustomerBoxes; ++i) open += IsEnabled(form, static_cast<CustomerBox>(i)) ? 'x' : '.';
    return open;
  }
};

TEST_F(CustomerFormTest, OpensWhatEachStateNeeds) {
  CustomerForm form = Open();
  EXPECT_EQ(Open(form), "AC") << "nobody on file";
  EXPECT_EQ(OpenBoxes(form), "............");
  StoreSamples();
  form = Open();
  EXPECT_EQ(Open(form), "DAFNPOC");
  EXPECT_EQ(OpenBoxes(form), "xxxxxxxxxxxx");
  Press(form, CustomerButton::Find);
  EXPECT_EQ(Open(form), "C");
  EXPECT_EQ(OpenBoxes(form), "xx..........");
  EXPECT_EQ(Open(Open(CustomerFormMode::Estimate)), "AFNPOC") << "no deleting while a plan's customer is picked";
  form = Open(CustomerFormMode::Company);
  EXPECT_EQ(Open(form), "OC");
  EXPECT_EQ(OpenBoxes(form), ".xxxxxxxxxxx");
}

TEST_F(CustomerFormTest, WholeNumberKnowsItsLimits) {
  const struct {
    const char* text;
    int number;
  } rows[] = {{"", 0},          {"0", 0},      {"1", 1},      {" 12", 12}, {"32766", 32766},
              {"32767", 32767}, {"32768", -1}, {"99999", -1}, {"-3", -1},  {"abc", 0}};
  for (const auto& row : rows) EXPECT_EQ(WholeNumber(row.text), row.number) << row.text;
}

TEST_F(CustomerFormTest, NumbersOnBothSidesOfEachLimit) {
  StoreSamples();
  const struct {
    const char* number;
    const char* message;  // nothing: taken
  } rows[] = {
      {"0", "0 The value 0 is reserved,  use a number from 1 to 32767!|Norvale Help Notice"},
      {"", "0 The value 0 is reserved,  use a number from 1 to 32767!|Norvale Help Notice"},
      {"32767", "0 The value 0 is reserved,  use a number from 1 to 32767!|Norvale Help Notice"},
      {"32768", "0 The value 0 is reserved,  use a number from 1 to 32767!|Norvale Help Notice"},
      {"7", "0 Another customer has the number 7. Use a free one.|Norvale Help Notice"},
      {"1", nullptr},
      {"32766", nullptr},
  };
  for (const auto& row : rows) {
    for (const CustomerButton button : {CustomerButton::Ok, CustomerButton::Next, CustomerButton::Find, CustomerButton::Add}) {
      CustomerForm form = Open();
      ASSERT_EQ(form.Text(CustomerBox::Name), "Hill Homes");
      form.Text(CustomerBox::Number) = row.number;
      const auto before = BytesOnDisk();
      if (row.message != nullptr) asked.Expect(row.message);
      if (button == CustomerButton::Next && std::string_view(row.number) == "32766") asked.Expect("0 End Of File|Norvale Help Notice");
      Press(form, button);
      asked.ExpectAllAsked();
      if (row.message != nullptr) {
        EXPECT_TRUE(form.isOpen) << row.number;
        EXPECT_EQ(form.focus, CustomerBox::Number) << row.number;
        EXPECT_EQ(BytesOnDisk(), before) << row.number;
        EXPECT_EQ(session.CurrentCustomer.CustomerRecordNumber, 3) << row.number;
        continue;
      }
      EXPECT_EQ(OnDisk(WholeNumber(row.number)).CustomerName.Trimmed(), "Hill Homes") << row.number;
      EXPECT_EQ(PlansOnDisk().size(), 5U);
      // Back to 3 for the next button; his plan comes along each time.
      CloseCustomerForm(program, form);
      ASSERT_TRUE(FindCustomer(folder, session, WholeNumber(row.number)).hasRecord);
      session.CurrentCustomer.CustomerRecordNumber = 3;
      ASSERT_EQ(SaveCustomer(folder, session), SaveCustomerResult::Saved);
      ASSERT_EQ(ReadEstimatesOfCustomer(scratch.Path(), 3).size(), 1U);
    }
  }
}

TEST_F(CustomerFormTest, UntouchedFieldsKeepTheirBytes) {
  CustomerRecord odd = Customer(4, "Odd");
  odd.Note2.bytes[0] = ' ';
  odd.Note2.bytes[1] = 'x';
  const std::vector customers = {odd};
  StoreAll(folder, customers, {});
  const auto before = BytesOnDisk();
  CustomerForm form = Open();
  Press(form, CustomerButton::Ok);
  EXPECT_TRUE(form.isAccepted);
  EXPECT_EQ(BytesOnDisk(), before) << "nothing was typed";
  form = Open();
  form.Text(CustomerBox::City) = "K\u00f6ln \u20ac";
  Press(form, CustomerButton::Ok);
  EXPECT_EQ(OnDisk(4).City.Trimmed(), "K\xf6ln \x80");
  EXPECT_EQ(OnDisk(4).Note2.Padded().substr(0, 2), " x");
}

TEST_F(CustomerFormTest, RefusesCharactersThatHaveNoByte) {
  StoreSamples();
  CustomerForm form = Open();
  form.Text(CustomerBox::City) = "\u03a9";
  asked.Expect("0 City holds a character that the customer file cannot keep. Type it another way.|Norvale Help Notice");
  Press(form, CustomerButton::Ok);
  EXPECT_TRUE(form.isOpen);
  EXPECT_EQ(form.focus, CustomerBox::City);
  EXPECT_EQ(OnDisk(3).City.Trimmed(), "");
}

TEST_F(CustomerFormTest, AnErrorLosesNeitherFilesNorTyping) {
  StoreSamples();
  const struct {
    const char* name;
    CustomerButton button;
  } rows[] = {{"OK", CustomerButton::Ok}, {"Next", CustomerButton::Next}, {"Find", CustomerButton::Find}, {"Add", CustomerButton::Add}};
  for (const auto& row : rows) {
    CustomerForm form = Open();
    form.Text(CustomerBox::City) = "Dover";
    const auto before = BytesOnDisk();
    disk.reason = "No space left on device";
    asked.Expect(FileErrorNotice(FileError("norvale.jnl", disk.reason)));
    Press(form, row.button);
    disk.reason.clear();
    asked.ExpectAllAsked();
    EXPECT_TRUE(form.isOpen) << row.name;
    EXPECT_EQ(form.Text(CustomerBox::City), "Dover") << row.name;
    EXPECT_EQ(BytesOnDisk(), before) << row.name;
    Press(form, CustomerButton::Ok);  // the disk has room again
    EXPECT_EQ(OnDisk(3).City.Trimmed(), "Dover") << row.name;
    form = Open();
    form.Text(CustomerBox::City).clear();
    Press(form, CustomerButton::Ok);
  }
}

TEST_F(CustomerFormTest, AFailedDeleteLeavesTheCustomer) {
  StoreSamples();
  CustomerForm form = Open();
  const auto before = BytesOnDisk();
  disk.reason = "No space left on device";
  asked.Expect("2 Delete this Customer?", Answer::Yes);
  asked.Expect(FileErrorNotice(FileError("custfil", disk.reason)));
  Press(form, CustomerButton::Delete);
  disk.reason.clear();
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_EQ(form.Text(CustomerBox::Name), "Hill Homes");
  EXPECT_EQ(Open(form), "DAFNPOC");
}

TEST_F(CustomerFormTest, ANewCustomerThatCannotBeTakenBackIsStillNew) {
  StoreSamples();
  CustomerForm form = Open();
  Press(form, CustomerButton::Add);
  disk.reason = "No space left on device";
  asked.Expect(FileErrorNotice(FileError("abortfil", disk.reason)));
  Press(form, CustomerButton::Cancel);
  EXPECT_FALSE(form.isOpen);
  disk.reason.clear();
  form = Open();
  EXPECT_EQ(CaptionOf(session, CustomerButton::Add), "ADD");
  Press(form, CustomerButton::Cancel);
  EXPECT_EQ(CustomersOnDisk(), samples);
}

TEST_F(CustomerFormTest, SearchTextEndsWithTheForm) {
  StoreSamples();
  for (const CustomerButton way : {CustomerButton::Ok, CustomerButton::Cancel}) {
    CustomerForm form = Open();
    Press(form, CustomerButton::Find);
    form.Text(CustomerBox::Name) = "oak";
    LookUp(program, form, CustomerBox::Name);
    EXPECT_EQ(session.CustomerSearchText, "OAK");
    EXPECT_EQ(form.Text(CustomerBox::Number), "7");
    Press(form, way);
    EXPECT_EQ(session.CustomerSearchText, "");
  }
}

TEST_F(CustomerFormTest, AMissedLookUpLeavesEverything) {
  StoreSamples();
  CustomerForm form = Open();
  Press(form, CustomerButton::Next);
  const std::int32_t cursor = session.CustomerCursor;
  const struct {
    CustomerBox box;
    const char* text;
    const char* message;
  } rows[] = {
      {CustomerBox::Number, "8", "0 Customer number 8 is not on file.|Norvale Help Notice"},
      {CustomerBox::Number, "0", "0 Customer number 0 is not on file.|Norvale Help Notice"},
      {CustomerBox::Number, "99999", "0 Customer number 99999 is not on file.|Norvale Help Notice"},
      {CustomerBox::Name, "el|m", "0 End of file, Find unable to locate EL M|Norvale Help Notice"},
  };
  for (const auto& row : rows) {
    Press(form, CustomerButton::Find);
    form.Text(row.box) = row.text;
    asked.Expect(row.message);
    LookUp(program, form, row.box);
    asked.ExpectAllAsked();
    EXPECT_FALSE(form.isLookingUp) << row.text;
    EXPECT_EQ(form.Text(CustomerBox::Name), "Oak Street Builders") << row.text;
    EXPECT_EQ(session.CustomerCursor, cursor) << row.text;
    EXPECT_EQ(session.CustomerSearchText, "") << row.text;
  }
}

}  // namespace
}  // namespace norvale
