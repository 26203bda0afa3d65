#include "platform/text/Invariant.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

TEST(Invariant, SaysWhatIsWrongAndWhere) {
  EXPECT_EQ(0, FailureOf([] {
              Invariant(true, "-");
              InvariantEqual(7, 7, "-");
            }));
  const int line = __LINE__ + 1;
  const Refusal broken = RefusalOf([] { Invariant(false, "nota fara linii"); });
  EXPECT_EQ(kBrokenInvariant, broken.number);
  EXPECT_EQ("Eroare interna, operatia a fost anulata: nota fara linii [InvariantTest.cpp:" +
                std::to_string(line) + "]",
            broken.text);
  const std::string unequal =
      DescriptionOf([] { InvariantEqual(-2, std::int64_t{1} << 40, "randuri scrise"); });
  EXPECT_NE(std::string::npos, unequal.find("randuri scrise: -2 in loc de 1099511627776 ["))
      << unequal;
}

}  // namespace
}  // namespace tevra
