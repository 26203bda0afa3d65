// Asset cards filled by a user who types and clicks at random and never waits, against the rules
// applied to the same steps one by one.
#include <map>
#include <random>
#include <set>

#include "platform/text/Numbers.h"
#include "tests/screens/CardTest.h"

namespace tevra::test {
namespace {

const DateTime kToday(2026, 11, 23);
const Coefficients kCoefficients{1.5, 2.0, 2.5};

Coefficients Read() {
  return kCoefficients;
}

/// The number box of a card: a number, or the text that was typed and is none.
struct Number {
  std::optional<double> number;
  std::string text;

  static Number Typed(const std::string& text) {
    if (text.empty() || !IsNumeric(text)) return {std::nullopt, text};
    return {CDbl(text), text};
  }
  bool IsEmpty() const { return !number && text.empty(); }
  void Set(std::optional<double> to) { *this = {to, {}}; }
  double Needed() const {
    if (!number) throw Failure(kTypeMismatch, "Type mismatch");
    return *number;
  }
};

/// What the rules make of a card, step by step. A control by its name: a number box is its place, a
/// date box 100 and its place, then the two ticks and the options.
class RuledCard {
 public:
  static constexpr int kDates = 100;
  static constexpr int kBlockedTick = 200;
  static constexpr int kExpenseTick = 201;
  static constexpr int kElsewhere = 202;  ///< a control without rules
  static constexpr int kOptions = 300;    ///< and the letter of the method

  std::array<Number, number::kCount> numbers;
  std::array<DateTime, date::kCount> dates;
  std::array<DateTime, date::kCount> settled;  ///< when a box was left last
  Method chosen = kLinear;
  char letter = kLinear;
  bool blocked = false;
  bool expensed = false;
  bool optionsEnabled = true;
  bool existing = false;
  int focus = kElsewhere;

  bool IsEnabled(int control) const {
    if (control >= kOptions) return optionsEnabled;
    if (control == kExpenseTick || control == kExpensed || control == kExpensedForeign) {
      return letter == kLinear;
    }
    return control != kCoef || coefEnabled;
  }
  bool coefEnabled = false;

  /// The user goes to a control by the mouse; false when the box that he leaves stops him.
  bool GoTo(int control) {
    if (control == focus) return true;
    const int before = focus;
    focus = control;
    moved_ = false;
    Leave(before);
    return !moved_;
  }
  void Type(int box, const std::string& text) {
    numbers[static_cast<std::size_t>(box)] = Number::Typed(text);
    touched_.insert(box);
  }
  void Type(int box, const DateTime& day) {
    DateTime& stands = dates[static_cast<std::size_t>(box - kDates)];
    stands = day;
  }
  void Click(int control) {
    if (control == kExpenseTick) {
      expensed = !expensed;
      return Told([&] { Expense(); });
    }
    if (control == kBlockedTick) {
      blocked = !blocked;
      touched_.insert(control);
      return Told([&] { Block_(); });
    }
    Choose(static_cast<Method>(control - kOptions));
  }
  /// The box with the focus is left by Enter.
  bool Enter() {
    moved_ = false;
    Leave(focus);
    return !moved_;
  }

 private:
  // A failure is told and ends the step only.
  template <class Step>
  static void Told(Step step) {
    try {
      step();
    } catch (const Failure&) {
    }
  }

  void Leave(int control) {
    const bool rules =
        control < kDates ? IsRuled(control) : control < kDates + 3 || control == kBlockedTick;
    if (!rules) return;
    const bool date = control >= kDates && control < kBlockedTick;
    const std::size_t place = date ? static_cast<std::size_t>(control - kDates) : 0;
    const bool touched = date ? dates[place] != settled[place] : touched_.count(control) > 0;
    if (!existing || touched) {
      Told([&] {
        if (control == kBlockedTick) return Unblock();
        control < kDates ? LeaveNumber(control) : LeaveDate(control - kDates);
      });
    }
    touched_.clear();
    settled = dates;
  }
  static bool IsRuled(int box) {
    static const std::set<int> kRuled = {kValue,     kExchangeRate, kNormalYears,
                                         kRealYears, kBlockedValue, kBlockedForeignValue};
    return kRuled.count(box) > 0;
  }

  void LeaveNumber(int box) {
    const Number& rate = numbers[kExchangeRate];
    switch (box) {
      case kValue:
      case kExchangeRate:
        if (!numbers[kValue].number || !rate.number) return;
        return numbers[kForeignValue].Set(ValueInCurrency(*numbers[kValue].number, *rate.number));
      case kNormalYears:
        if (numbers[kNormalYears].IsEmpty()) return Missing(true);
        DeriveFromYears(true);
        dates[kEnd] = InYearOfEnd(dates[kEnd], dates[kInService], numbers[kRealYears].Needed());
        return;
      case kRealYears:
        if (numbers[kNormalYears].IsEmpty()) return Missing(false);
        return DeriveFromYears(numbers[kNormalYears].Needed() <= 0);
      default:
        if ((rate.IsEmpty() ? 0 : rate.Needed()) == 0 || numbers[kBlockedValue].IsEmpty()) return;
        numbers[kBlockedForeignValue].Set(
            RoundTo(numbers[kBlockedValue].Needed() / *rate.number, 0));
    }
  }
  void Missing(bool backToLinear) {
    if (backToLinear && chosen != kLinear) Choose(kLinear);
    Move(kNormalYears);
  }
  void Move(int control) {
    focus = control;
    moved_ = true;
  }
  void LeaveDate(int left) {
    if (chosen == kNoDepreciation) {
      for (std::size_t i = static_cast<std::size_t>(left) + 1; i <= (left == 2 ? 3 : 4); ++i) {
        dates[i] = dates[kBought];
      }
      return;
    }
    if (left == 0) dates[kInService] = dates[kBought];
    if (left < 2) dates[kStart] = FirstOfNextMonth(dates[kInService]);
    if (!numbers[kRealYears].IsEmpty()) {
      dates[kEnd] = EndOfLife(dates[kStart], numbers[kRealYears].Needed());
    }
    dates[kBlockedFrom] = dates[kStart];
  }

  void Choose(Method method) {
    chosen = method;
    letter = method;
    if (method == kLinear) return Told([&] { Linear(); });
    numbers[kExpensed].Set(0);
    numbers[kExpensedForeign].Set(0);
    if (expensed) Click(kExpenseTick);
    if (numbers[kNormalYears].IsEmpty()) {
      Choose(kLinear);
      return Move(kNormalYears);
    }
    Derived derived;
    bool fits = true;
    Told([&] {
      const bool byYearsLeft = method == kAccelerated && blocked;
      const bool looks = method != kNoDepreciation && !byYearsLeft;
      derived.realIsNormal = method == kAccelerated;
      try {
        fits = PickMethod(method, looks ? numbers[kNormalYears].Needed() : 0, byYearsLeft,
                          YearsLeft(byYearsLeft), Read, derived);
      } catch (const Failure&) {
        Apply(derived, true);
        throw;
      }
      if (!fits) return FallBack();
      Apply(derived, true);
      coefEnabled = method == kAccelerated;
    });
  }
  std::optional<double> YearsLeft(bool wanted) const {
    if (!wanted || numbers[kYearsLeft].IsEmpty()) return std::nullopt;
    return numbers[kYearsLeft].Needed();
  }
  void Linear() {
    Derived derived;
    const Number& years = numbers[kNormalYears];
    PickLinear(years.IsEmpty() ? std::nullopt : std::optional(years.Needed()), derived);
    Apply(derived, true);
    coefEnabled = false;
  }
  void FallBack() {
    Choose(kLinear);
    Move(kOptions + kLinear);
  }
  void DeriveFromYears(bool withReal) {
    Derived derived;
    bool fits = false;
    try {
      fits = LeaveDuration(chosen, numbers[kNormalYears].Needed(), Read, derived);
    } catch (const Failure&) {
      Apply(derived, withReal);
      throw;
    }
    fits ? Apply(derived, withReal) : FallBack();
  }
  void Apply(const Derived& derived, bool withReal) {
    if (derived.realIsNormal) numbers[kRealYears] = numbers[kNormalYears];
    if (withReal && derived.real) numbers[kRealYears].Set(derived.real);
    if (derived.rate) numbers[kRate].Set(derived.rate);
    if (derived.coef) numbers[kCoef].Set(derived.coef);
  }

  void Block_() {
    const TimeLeft left = TimeLeftAt(dates[kBlockedFrom], dates[kEnd]);
    numbers[kYearsLeft].Set(left.years);
    numbers[kMonthsLeft].Set(left.months);
    Derived derived;
    Block(static_cast<Method>(letter), left.years, Read, derived) ? Apply(derived, true)
                                                                  : FallBack();
    optionsEnabled = false;
    // An option that is disabled hands the focus on to the next box.
    if (focus >= kOptions) focus = kNormalYears;
  }
  void Unblock() {
    if (blocked) return;
    optionsEnabled = true;
    for (const int box : {kBlockedValue, kBlockedForeignValue, kYearsLeft, kMonthsLeft}) {
      numbers[static_cast<std::size_t>(box)].Set(0);
    }
  }
  void Expense() {
    if (!expensed) {
      numbers[kExpensed].Set(0);
      return numbers[kExpensedForeign].Set(0);
    }
    if (numbers[kValue].number) numbers[kExpensed].Set(DirectExpense(*numbers[kValue].number));
    const Number& rate = numbers[kExchangeRate];
    const bool hasRate = !rate.IsEmpty() && rate.Needed() != 0;
    if (numbers[kForeignValue].number && hasRate) {
      numbers[kExpensedForeign].Set(DirectExpense(*numbers[kForeignValue].number));
    }
  }

  std::set<int> touched_;  // since a box was left
  bool moved_ = false;     // the rules put the focus elsewhere
};

class RandomCards : public CardTest {
 protected:
  int Any(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  void OpenCard(bool existing) {
    const std::string id = existing ? std::to_string(company_.AddAsset(StoredAsset())) : "";
    card_ = Open({!existing, id});
    nrCrt_ = existing ? std::stoi(id) : 0;
    if (!existing) FillCombos();
    card_->txtText[0]->setFocus();
    QCoreApplication::processEvents();
    TakeOver(existing);
  }
  std::vector<std::pair<std::string, Value>> StoredAsset() {
    static constexpr const char* kLetters[] = {"L", "A", "N", "M", "F"};
    const DateTime start(2020 + Any(5), 1 + Any(12), 1);
    return {{"COD", "V" + std::to_string(steps_)},
            {"COD_GR_NOU", "1.1.1.1"},
            {"DENUMIRE", "Strung"},
            {"DOCUMENT", "F" + std::to_string(steps_)},
            {"COD_FURNIZOR", "7"},
            {"COD_TVA_CUMP", "5"},
            {"CONT", "2131"},
            {"TIP_AM", kLetters[Any(5)]},
            {"VAL_CUMP", 1000.0 + Any(9000)},
            {"CURS", 4.5},
            {"VAL_CUMP_VAL", 300.0},
            {"DNFANI", 4.0 + Any(3)},
            {"DRFANI", 5.0},
            {"COTA_ANUALA", 0.2},
            {"GRAD_U", 100.0},
            {"DATA_ACH", start.AddMonths(-1)},
            {"DATA_PF", start.AddMonths(-1)},
            {"DATA_IN_AM", start},
            {"DATA_SF", start.AddMonths(60)},
            {"DATA_BLOCARE", start.AddMonths(12)}};
  }
  void FillCombos() {
    card_->txtText[text::kCode]->SetText("N" + std::to_string(steps_));
    card_->txtText[text::kName]->SetText("Freza");
    card_->txtText[text::kDocument]->SetText("D" + std::to_string(steps_));
    const std::pair<DataCombo*, const char*> kPicks[] = {{card_->cboGrupa, "1.1.1.1"},
                                                         {card_->cboCont, "2131"},
                                                         {card_->cboFurnizori, "7"},
                                                         {card_->cboTVA, "5"}};
    for (const auto& [combo, bound] : kPicks) Pick(combo, bound);
  }
  // What stands on the card at its opening is where the rules begin.
  void TakeOver(bool existing) {
    rules_ = RuledCard();
    rules_.existing = existing;
    for (std::size_t i = 0; i < number::kCount; ++i) {
      const NumberBox& box = *card_->txtNumar[i];
      rules_.numbers[i] = {box.IsNumeric() ? box.Number() : std::nullopt, box.Text()};
    }
    for (std::size_t i = 0; i < date::kCount; ++i) rules_.dates[i] = *card_->DTPicker1[i]->Date();
    rules_.settled = rules_.dates;
    rules_.letter = card_->txtText[text::kMethod]->Text()[0];
    rules_.chosen = static_cast<Method>(rules_.letter);
    rules_.blocked = card_->chkBlocata->isChecked();
    rules_.expensed = card_->chkChelt->isChecked();
    rules_.coefEnabled = card_->txtNumar[kCoef]->isEnabled();
  }

  QWidget* ControlOf(int control) const {
    if (control < RuledCard::kDates) return card_->txtNumar[static_cast<std::size_t>(control)];
    if (control < RuledCard::kBlockedTick) {
      return card_->DTPicker1[static_cast<std::size_t>(control - RuledCard::kDates)];
    }
    if (control == RuledCard::kBlockedTick) return card_->chkBlocata;
    if (control == RuledCard::kExpenseTick) return card_->chkChelt;
    switch (control - RuledCard::kOptions) {
      case kLinear:
        return card_->Liniara;
      case kAccelerated:
        return card_->Accelerata;
      case kWithWear:
        return card_->CuUzura;
      case kWithoutWear:
        return card_->FaraUzura;
      case kNoDepreciation:
        return card_->Faraam;
      default:
        return card_->txtText[text::kRemarks];
    }
  }
  static void Click(QWidget* control) {
    QWidget* at = control;
    if (auto* date = qobject_cast<QDateEdit*>(control)) at = date->findChild<QLineEdit*>();
    QTest::mouseClick(at, Qt::LeftButton, {}, QPoint(8, at->height() / 2));
  }

  // One step of the user, on the card and by the rules.
  void Step() {
    static constexpr int kControls[] = {kValue,
                                        kExchangeRate,
                                        kForeignValue,
                                        kNormalYears,
                                        kRealYears,
                                        kRate,
                                        kBlockedValue,
                                        kBlockedForeignValue,
                                        kCoef,
                                        kExpensed,
                                        kExpensedForeign,
                                        RuledCard::kDates,
                                        RuledCard::kDates + 1,
                                        RuledCard::kDates + 2,
                                        RuledCard::kDates + 3,
                                        RuledCard::kDates + 4,
                                        RuledCard::kBlockedTick,
                                        RuledCard::kExpenseTick,
                                        RuledCard::kElsewhere,
                                        RuledCard::kOptions + kLinear,
                                        RuledCard::kOptions + kAccelerated,
                                        RuledCard::kOptions + kWithWear,
                                        RuledCard::kOptions + kWithoutWear,
                                        RuledCard::kOptions + kNoDepreciation};
    const int control = kControls[Any(std::size(kControls))];
    if (!rules_.IsEnabled(control)) return;
    QWidget* widget = ControlOf(control);
    done_ += " " + widget->objectName().toStdString();
    ASSERT_TRUE(widget->isEnabled()) << done_;
    Click(widget);
    const bool goes = rules_.GoTo(control);
    if (!goes) {
      done_ += "(stopped)";
      return;
    }
    if (control < RuledCard::kDates)
      TypeNumber(control);
    else if (control < RuledCard::kBlockedTick)
      TypeDate(control);
    else if (control != RuledCard::kElsewhere)
      rules_.Click(control);
  }
  void TypeNumber(int box) {
    static constexpr const char* kTexts[] = {"",   "0",  "1",   "4",      "5",       "5",   "8",
                                             "12", "20", "2,5", "12.000", "4500,75", "opt", "0.5"};
    if (Any(5) == 0) return;  // only passes through
    const char* text = kTexts[Any(std::size(kTexts))];
    done_ += std::string("=") + text;
    QTest::keySequence(ControlOf(box), QKeySequence::SelectAll);
    QTest::keyClick(ControlOf(box), Qt::Key_Delete);
    QTest::keyClicks(ControlOf(box), text);
    rules_.Type(box, text);
  }
  void TypeDate(int box) {
    if (Any(5) == 0) return;
    const QDate day = QDate(2018, 1, 1).addDays(Any(4000));
    static constexpr const char* kForms[] = {"ddMMyyyy", "d.M.yyyy", "d/M/yyyy"};
    const QString typed = day.toString(kForms[Any(3)]);
    done_ += "=" + typed.toStdString();
    QTest::keyClicks(ControlOf(box), typed);
    rules_.Type(box, DateTime(day.year(), day.month(), day.day()));
  }

  void ExpectTheSame() {
    for (std::size_t i = 0; i < number::kCount; ++i) {
      const NumberBox& box = *card_->txtNumar[i];
      const Number& expected = rules_.numbers[i];
      ASSERT_EQ(box.IsEmpty(), expected.IsEmpty()) << "txtNumar " << i << done_;
      ASSERT_EQ(box.IsNumeric(), expected.number.has_value()) << "txtNumar " << i << done_;
      if (expected.number) {
        ASSERT_EQ(box.Number(), expected.number) << "txtNumar " << i << done_;
      } else {
        ASSERT_EQ(box.Text(), expected.text) << "txtNumar " << i << done_;
      }
    }
    for (std::size_t i = 0; i < date::kCount; ++i) {
      ASSERT_EQ(card_->DTPicker1[i]->Date(), rules_.dates[i]) << "DTPicker1 " << i << done_;
    }
    ASSERT_EQ(card_->txtText[text::kMethod]->Text(), std::string(1, rules_.letter)) << done_;
    ASSERT_EQ(card_->chkBlocata->isChecked(), rules_.blocked) << done_;
    ASSERT_EQ(card_->chkChelt->isChecked(), rules_.expensed) << done_;
    ASSERT_EQ(card_->Faraam->isEnabled(), rules_.optionsEnabled) << done_;
    ASSERT_EQ(card_->txtNumar[kCoef]->isEnabled(), rules_.IsEnabled(kCoef)) << done_;
    ASSERT_EQ(card_->chkChelt->isEnabled(), rules_.IsEnabled(RuledCard::kExpenseTick)) << done_;
  }

  // The boxes as a save reads them.
  AssetCard Boxes(AssetCard boxes) const {
    boxes.text[text::kMethod] = std::string(1, rules_.letter);
    for (std::size_t i = 0; i < number::kCount; ++i) {
      const Number& each = rules_.numbers[i];
      if (!each.IsEmpty()) boxes.number[i] = each.number ? Value(*each.number) : Value(each.text);
    }
    const bool zeros = rules_.existing;
    for (const auto place : {kExpensed, kExpensedForeign}) {
      if (zeros && rules_.numbers[place].IsEmpty()) boxes.number[place] = Value(0.0);
    }
    boxes.date = rules_.dates;
    boxes.blocked = rules_.blocked;
    return boxes;
  }
  std::optional<FieldValues> RowByTheRules(const AssetCard& texts) const {
    try {
      return rules_.existing
                 ? ChangedAssetRow(Boxes(texts), kCoefficients, kToday).fields
                 : NewAssetRow(Boxes(texts), kCoefficients, kToday, CurrentSession().userName)
                       .fields;
    } catch (const Failure&) {
      return std::nullopt;
    }
  }
  // A field of whole numbers rounds.
  static Value AsKept(const Value& value, const FieldInfo& field) {
    const FieldType type = field.def.type;
    const bool whole =
        type == FieldType::Integer || type == FieldType::Long || type == FieldType::Byte;
    return whole && !value.IsNull() ? Value(Round0(value.AsDouble())) : value;
  }
  // By Enter in the box with the focus, or by a click on the button.
  void Save() {
    QPushButton* button = rules_.existing ? card_->cmdModificare : card_->cmdSalvare;
    AssetCard texts;
    for (std::size_t i = 0; i < text::kCount; ++i) texts.text[i] = card_->txtText[i]->Text();
    texts.tva = card_->cboTVA->Text();
    messages_.shown.clear();
    bool goes = true;
    if (Any(2)) {
      done_ += " Enter";
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
      goes = rules_.Enter();
    } else {
      done_ += " save";
      Click(button);
      goes = rules_.GoTo(RuledCard::kElsewhere);
    }
    bool saved = false;
    for (const MessageRequest& each : messages_.shown) {
      saved = saved || each.prompt.find("cu succes") != std::string::npos;
    }
    if (!goes) {
      EXPECT_FALSE(saved) << done_;
      return ExpectTheSame();
    }
    if (!saved) return ExpectTheSame();
    const std::optional<FieldValues> row = RowByTheRules(texts);
    ASSERT_TRUE(row) << done_;
    const Recordset stored = OpenRecordset(
        rules_.existing ? "SELECT * FROM I_IMO WHERE NRCRT = " + std::to_string(nrCrt_)
                        : "SELECT TOP 1 * FROM I_IMO ORDER BY NRCRT DESC");
    // A field that is written twice has the later value.
    std::map<std::string, Value> fields;
    for (const auto& [field, value] : *row) fields[field] = value;
    for (const auto& [field, value] : fields) {
      const Value kept = AsKept(value, stored.Field(stored.FindField(field).value()));
      EXPECT_EQ(stored.Get(field).TextOrEmpty(), kept.TextOrEmpty()) << field << done_;
    }
    ++saved_;
  }

  std::unique_ptr<frmFisaImo> card_;
  RuledCard rules_;
  std::mt19937 random_;
  std::string done_;
  int steps_ = 0;
  int nrCrt_ = 0;
  int saved_ = 0;
};

// TEVRA_CARDS: how many cards, beyond the few of an ordinary run.
TEST_F(RandomCards, ComeOutAsTheRulesHaveItHoweverFastTheUserIs) {
  const int cards = std::max(24, qEnvironmentVariableIntValue("TEVRA_CARDS"));
  for (int i = 0; i < cards; ++i) {
    random_.seed(static_cast<unsigned>(i));
    steps_ = i;
    OpenCard(i % 2 == 1);
    done_ = "\ncard " + std::to_string(i) + ":";
    for (int step = 0; step < 14; ++step) {
      Step();
      ExpectTheSame();
      if (HasFatalFailure() || HasNonfatalFailure()) return;
    }
    Save();
    if (HasFatalFailure() || HasNonfatalFailure()) return;
    card_.reset();
  }
  RecordProperty("saved", saved_);
  EXPECT_GT(saved_, cards / 10) << "of " << cards;
}

}  // namespace
}  // namespace tevra::test
