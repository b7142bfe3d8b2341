#include "shell/frm_address.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"

namespace norvale {
namespace {

constexpr const char* kReserved = "0 The value 0 is reserved,  use a number from 1 to 32767!|Norvale Help Notice";

// The buttons, by their index.
constexpr const char* kDelete = "cmdAddress_0";
constexpr const char* kAdd = "cmdAddress_1";
constexpr const char* kFind = "cmdAddress_2";
constexpr const char* kNext = "cmdAddress_3";
constexpr const char* kPrevious = "cmdAddress_4";
constexpr const char* kOk = "cmdAddress_5";
constexpr const char* kCancel = "cmdAddress_6";

class frmAddressTest : public DesktopTest {
 protected:
  // Opens the form and drives it until it closes. Returns whether it was left with OK.
  template <typename Drive>
  bool Run(Drive drive, CustomerFormMode mode = CustomerFormMode::Customer) {
    frmAddress form(program, mode);
    DriveModal<frmAddress>([&] { form.exec(); }, drive);
    return form.IsAccepted();
  }
  static std::string Name(QWidget& form) { return Text(form, "txtAddress_1"); }
};

TEST_F(frmAddressTest, EveryBoxReachesItsField) {
  StoreSamples();
  const std::array<const char*, 12> texts = {"3",     "Hill Homes Inc", "12 Hill St", "Suite 4",      "Dover",       "DE",
                                             "19901", "Pat Hill",       "3025550100", "302-555-0101", "pays in May", "call first"};
  EXPECT_TRUE(Run([&](frmAddress& form) {
    for (std::size_t i = 0; i < texts.size(); ++i) Type(form, ("txtAddress_" + std::to_string(i)).c_str(), texts[i]);
    Click(form, kOk);
  }));
  const CustomerRecord customer = OnDisk(3);
  EXPECT_EQ((std::array{customer.CustomerName.Trimmed(), customer.AddressLine1.Trimmed(), customer.AddressLine2.Trimmed(),
                        customer.City.Trimmed(), customer.State.Trimmed(), customer.Zip.Trimmed(), customer.Contact.Trimmed(),
                        customer.Telephone.Trimmed(), customer.Fax.Trimmed(), customer.Note1.Trimmed(), customer.Note2.Trimmed()}),
            (std::array<std::string, 11>{texts[1], texts[2], texts[3], texts[4], texts[5], texts[6], texts[7], texts[8], texts[9],
                                         texts[10], texts[11]}));
  // What was saved is what is shown.
  Run([&](frmAddress& form) {
    for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(Text(form, ("txtAddress_" + std::to_string(i)).c_str()), texts[i]);
    Click(form, kCancel);
  });
}

TEST_F(frmAddressTest, EnterGoesThroughTheBoxesInReadingOrder) {
  StoreSamples();
  Run([](frmAddress& form) {
    Find(form, "txtAddress_0")->setFocus();
    for (int i = 1; i < 12; ++i) {
      Key(Qt::Key_Return);
      EXPECT_EQ(Focus(), "txtAddress_" + std::to_string(i));
    }
    for (int i = 0; i < 7; ++i) {
      Key(Qt::Key_Tab);
      EXPECT_EQ(Focus(), "cmdAddress_" + std::to_string(i));
    }
    Key(Qt::Key_Backtab);
    EXPECT_EQ(Focus(), "cmdAddress_5");
    Key(Qt::Key_Return);
  });
}

TEST_F(frmAddressTest, BoxesTakeWhatTheirFieldsHold) {
  StoreSamples();
  Run([](frmAddress& form) {
    Type(form, "txtAddress_5", "DEX");
    EXPECT_EQ(Text(form, "txtAddress_5"), "DE");
    Type(form, "txtAddress_0", "1a2-3456789");
    EXPECT_EQ(Text(form, "txtAddress_0"), "12345");
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmAddressTest, ACharacterWithoutAByteIsRefusedWhileItIsTyped) {
  StoreSamples();
  Run([this](frmAddress& form) {
    Type(form, "txtAddress_4", "Dover");
    asked.Expect("0 The customer file cannot hold that character. Type it another way.|Norvale Help Notice");
    Letter(QStringLiteral("\u03a9"));
    asked.ExpectAllAsked();
    EXPECT_EQ(Text(form, "txtAddress_4"), "Dover");
    Letter(QStringLiteral("\u00e9"));
    Click(form, kOk);
  });
  EXPECT_EQ(OnDisk(3).City.Trimmed(), "Dover\xe9");
}

// What is typed right behind ALT+A belongs to the new customer.
TEST_F(frmAddressTest, AddTakesTheNextNumberAtOnce) {
  StoreSamples();
  EXPECT_TRUE(Run([this](frmAddress& form) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::AltModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("New Homes"));
    EXPECT_EQ(Find<QPushButton>(form, kAdd)->text(), QStringLiteral("ADD"));
    EXPECT_EQ(Text(form, "txtAddress_0"), "13");
    EXPECT_EQ(Name(form), "New Homes");
    Click(form, kAdd);  // does nothing
    EXPECT_EQ(Name(form), "New Homes");
    EXPECT_EQ(CustomersOnDisk().size(), 4U);
    Click(form, kOk);
  }));
  EXPECT_EQ(CustomersOnDisk(), (Customers{{3, "Hill Homes"}, {7, "Oak Street Builders"}, {12, "Smith & Oakley"}, {13, "New Homes"}}));
}

TEST_F(frmAddressTest, ANewCustomerGoesWhereHisNumberBelongs) {
  StoreSamples();
  Run([this](frmAddress& form) {
    Click(form, kAdd);
    for (const char* const taken : {"0", "32767"}) {
      Type(form, "txtAddress_0", taken);
      asked.Expect(kReserved);
      Click(form, kOk);
      asked.ExpectAllAsked();
      EXPECT_EQ(Focus(), "txtAddress_0");
    }
    Type(form, "txtAddress_0", "7");
    asked.Expect("0 Another customer has the number 7. Use a free one.|Norvale Help Notice");
    Click(form, kOk);
    Type(form, "txtAddress_0", "5");
    Type(form, "txtAddress_1", "Five");
    Click(form, kOk);
  });
  EXPECT_EQ(CustomersOnDisk(), (Customers{{3, "Hill Homes"}, {5, "Five"}, {7, "Oak Street Builders"}, {12, "Smith & Oakley"}}));
}

TEST_F(frmAddressTest, LeavingTheAddStateTakesTheCustomerBack) {
  StoreSamples();
  const struct {
    const char* name;
    std::function<void(frmAddress&)> leave;
  } ways[] = {
      {"Cancel", [](frmAddress& form) { Click(form, kCancel); }},
      {"Esc", [](frmAddress&) { Key(Qt::Key_Escape); }},
      {"closing", [](frmAddress& form) { form.close(); }},
      {"Delete",
       [this](frmAddress& form) {
         asked.Expect("2 Delete this Customer?", Answer::Yes);
         Click(form, kDelete);
         EXPECT_EQ(Name(form), "Hill Homes");
         EXPECT_NE(Find<QPushButton>(form, kAdd)->text(), QStringLiteral("ADD"));
         Click(form, kCancel);
       }},
  };
  const auto plans = PlansOnDisk();
  for (const auto& way : ways) {
    EXPECT_FALSE(Run([&](frmAddress& form) {
      Click(form, kAdd);
      Keys("Typed in vain");
      way.leave(form);
    })) << way.name;
    EXPECT_EQ(CustomersOnDisk(), samples) << way.name;
    EXPECT_EQ(PlansOnDisk(), plans) << way.name;
    EXPECT_EQ(std::filesystem::file_size(scratch.Path() / CustomerDataFile), 4 * CustomerRecordSize) << way.name;
  }
}

// After a step the new customer is saved, and Cancel must not take anybody back.
TEST_F(frmAddressTest, AStepEndsTheAddState) {
  StoreSamples();
  Run([this](frmAddress& form) {
    Click(form, kAdd);
    Keys("New Homes");
    Click(form, kPrevious);
    EXPECT_EQ(Name(form), "Smith & Oakley");
    EXPECT_EQ(Find<QPushButton>(form, kAdd)->text(), QStringLiteral("&Add"));
    Click(form, kCancel);
  });
  EXPECT_EQ(CustomersOnDisk(), (Customers{{3, "Hill Homes"}, {7, "Oak Street Builders"}, {12, "Smith & Oakley"}, {13, "New Homes"}}));
}

TEST_F(frmAddressTest, CancelDropsWhatWasTyped) {
  StoreSamples();
  const auto before = BytesOnDisk();
  EXPECT_FALSE(Run([](frmAddress& form) {
    Type(form, "txtAddress_1", "Somebody Else");
    Click(form, kCancel);
  }));
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_EQ(session.CurrentCustomer.CustomerName.Trimmed(), "Hill Homes");
}

TEST_F(frmAddressTest, StepsSaveAndStopAtTheEnds) {
  StoreSamples();
  Run([this](frmAddress& form) {
    asked.Expect("0 Beginning Of File|Norvale Help Notice");
    Click(form, kPrevious);
    EXPECT_EQ(Name(form), "Hill Homes");
    Type(form, "txtAddress_4", "Dover");
    Click(form, kNext);
    EXPECT_EQ(Name(form), "Oak Street Builders");
    Click(form, kNext);
    EXPECT_EQ(Name(form), "Smith & Oakley");
    asked.Expect("0 End Of File|Norvale Help Notice");
    Click(form, kNext);
    EXPECT_EQ(Name(form), "Smith & Oakley");
    Click(form, kCancel);
  });
  EXPECT_EQ(OnDisk(3).City.Trimmed(), "Dover");
  EXPECT_EQ(CustomersOnDisk(), samples);
}

TEST_F(frmAddressTest, RenumberingMovesThePlans) {
  StoreSamples();
  Run([](frmAddress& form) {
    Click(form, kNext);
    Type(form, "txtAddress_0", "20");
    Click(form, kPrevious);
    EXPECT_EQ(Name(form), "Smith & Oakley") << "the one before number 20";
    Click(form, kCancel);
  });
  EXPECT_EQ(CustomersOnDisk(), (Customers{{3, "Hill Homes"}, {12, "Smith & Oakley"}, {20, "Oak Street Builders"}}));
  EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "M"}, {3, "A"}, {20, "A"}, {20, "B"}, {20, "C"}}));
}

TEST_F(frmAddressTest, DeleteAsksAndHandsThePlansToTheCompany) {
  StoreSamples();
  Run([this](frmAddress& form) {
    Click(form, kNext);
    asked.Expect("2 Delete this Customer?", Answer::No);
    Click(form, kDelete);
    EXPECT_EQ(CustomersOnDisk(), samples);
    asked.Expect("2 Delete this Customer?", Answer::Yes);
    Click(form, kDelete);
    EXPECT_EQ(Name(form), "Hill Homes") << "the first that is left";
    Click(form, kOk);
  });
  EXPECT_EQ(CustomersOnDisk(), (Customers{{3, "Hill Homes"}, {12, "Smith & Oakley"}}));
  EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "A"}, {0, "B"}, {0, "C"}, {0, "M"}, {3, "A"}}));
}

TEST_F(frmAddressTest, AfterTheLastOneOnlyAddAndCancelAreOpen) {
  const std::vector customers = {Customer(4, "Only")};
  StoreAll(folder, customers, {});
  Run([this](frmAddress& form) {
    asked.Expect("2 Delete this Customer?", Answer::Yes);
    Click(form, kDelete);
    for (const char* const button : {kDelete, kFind, kNext, kPrevious, kOk}) EXPECT_FALSE(Find(form, button)->isEnabled()) << button;
    EXPECT_FALSE(Find(form, "txtAddress_1")->isEnabled());
    EXPECT_EQ(Name(form), "");
    EXPECT_EQ(Focus(), kAdd);
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(form, "txtAddress_0"), "1");
    Keys("First again");
    Click(form, kOk);
  });
  EXPECT_EQ(CustomersOnDisk(), (Customers{{1, "First again"}}));
  EXPECT_EQ(OnDisk(0).CustomerName.Trimmed(), "") << "the company is nobody's customer";
}

TEST_F(frmAddressTest, FindsByNumber) {
  StoreSamples();
  Run([](frmAddress& form) {
    Click(form, kFind);
    EXPECT_EQ(Focus(), "txtAddress_0");
    EXPECT_EQ(Text(form, "txtAddress_0") + Name(form), "");
    EXPECT_FALSE(Find(form, "txtAddress_2")->isEnabled());
    for (const char* const button : {kDelete, kAdd, kFind, kNext, kPrevious, kOk}) EXPECT_FALSE(Find(form, button)->isEnabled()) << button;
    Keys("12");
    Key(Qt::Key_Return);
    EXPECT_EQ(Name(form), "Smith & Oakley");
    EXPECT_TRUE(Find(form, "txtAddress_2")->isEnabled());
    Type(form, "txtAddress_4", "Salem");
    Click(form, kOk);
  });
  EXPECT_EQ(OnDisk(12).City.Trimmed(), "Salem") << "saved under the customer who was found";
  EXPECT_EQ(CustomersOnDisk(), samples);
}

TEST_F(frmAddressTest, FindsByPartOfANameInAnyCaseAndStepsThroughTheMatches) {
  StoreSamples();
  for (const char* const typed : {"oak", "OAK", "oAk"}) {
    Run([&](frmAddress& form) {
      Click(form, kFind);
      Key(Qt::Key_Return);  // the number stays empty
      EXPECT_EQ(Focus(), "txtAddress_1");
      Keys(typed);
      Key(Qt::Key_Return);
      EXPECT_EQ(Name(form), "Oak Street Builders");
      Click(form, kNext);
      EXPECT_EQ(Name(form), "Smith & Oakley");
      asked.Expect("0 No more OAK matches found. Try PREV.|Norvale Help Notice");
      Click(form, kNext);
      EXPECT_EQ(Name(form), "Smith & Oakley");
      Click(form, kPrevious);
      EXPECT_EQ(Name(form), "Oak Street Builders");
      asked.Expect("0 No more OAK matches found. Try NEXT.|Norvale Help Notice");
      Click(form, kPrevious);
      EXPECT_EQ(Name(form), "Oak Street Builders");
      Click(form, kCancel);
    });
    asked.ExpectAllAsked();
  }
  // The search is over with the form.
  Run([](frmAddress& form) {
    Click(form, kPrevious);
    EXPECT_EQ(Name(form), "Hill Homes");
    Click(form, kCancel);
  });
}

TEST_F(frmAddressTest, LeavingABoxWithTextLooksUp) {
  StoreSamples();
  Run([](frmAddress& form) {
    Click(form, kFind);
    Keys("7");
    Key(Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Name(form) == "Oak Street Builders"; }, kLongestWait)) << Name(form);
    Click(form, kFind);
    Key(Qt::Key_Tab);
    Keys("hill");
    Key(Qt::Key_Tab);  // to Cancel, the only button that is open
    EXPECT_TRUE(QTest::qWaitFor([&] { return Name(form) == "Hill Homes"; }, kLongestWait)) << Name(form);
    Click(form, kCancel);
  });
}

TEST_F(frmAddressTest, AFindThatIsGivenUpShowsTheCurrentOne) {
  StoreSamples();
  const auto before = BytesOnDisk();
  const struct {
    const char* name;
    std::function<void(frmAddress&)> giveUp;
  } ways[] = {
      {"Esc", [](frmAddress&) { Key(Qt::Key_Escape); }},
      {"Cancel with text typed", [](frmAddress& form) { Keys("99"), SlowClick(form, kCancel); }},
      {"both empty", [](frmAddress&) { Key(Qt::Key_Return), Key(Qt::Key_Return); }},
      {"out of both", [](frmAddress&) { Key(Qt::Key_Tab), Key(Qt::Key_Tab); }},
  };
  for (const auto& way : ways)
    Run([&](frmAddress& form) {
      Click(form, kFind);
      way.giveUp(form);
      EXPECT_TRUE(QTest::qWaitFor([&] { return Find(form, "txtAddress_2")->isEnabled(); }, kLongestWait)) << way.name;
      EXPECT_TRUE(form.isVisible()) << way.name;
      EXPECT_EQ(Text(form, "txtAddress_0") + Name(form), "3Hill Homes") << way.name;
      Click(form, kCancel);
    });
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(frmAddressTest, PicksTheCustomerOfAnEstimate) {
  StoreSamples();
  EXPECT_TRUE(Run(
      [](frmAddress& form) {
        Click(form, kNext);
        Click(form, kOk);
      },
      CustomerFormMode::Estimate));
  EXPECT_EQ(session.CurrentCustomer.CustomerRecordNumber, 7);
  EXPECT_FALSE(Run([](frmAddress&) { Key(Qt::Key_Escape); }, CustomerFormMode::Estimate));
  EXPECT_EQ(CustomersOnDisk(), samples);
}

TEST_F(frmAddressTest, AnEstimatesFirstCustomerIsTakenBackByCancel) {
  EXPECT_FALSE(Run([](frmAddress&) { Key(Qt::Key_Escape); }, CustomerFormMode::Estimate));
  EXPECT_EQ(CustomersOnDisk(), Customers{});
  EXPECT_EQ(std::filesystem::file_size(scratch.Path() / CustomerIndexFile), 6U);
}

TEST_F(frmAddressTest, TheCompanyHasNoNumberAndNoNeighbours) {
  StoreSamples();
  const auto before = BytesOnDisk();
  Run(
      [](frmAddress& form) {
        EXPECT_FALSE(Find(form, "txtAddress_0")->isVisible());
        for (const char* const button : {kDelete, kAdd, kFind, kNext, kPrevious}) {
          EXPECT_FALSE(Find(form, button)->isVisible()) << button;
          EXPECT_FALSE(Find(form, button)->isEnabled()) << button;
        }
        Type(form, "txtAddress_1", "Typed in vain");
        Key(Qt::Key_Escape);
      },
      CustomerFormMode::Company);
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_EQ(session.CustomerCursor, 7);
}

}  // namespace
}  // namespace norvale
