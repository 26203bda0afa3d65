// The statements and totals of the list of inventory objects.
#include "inventory/InventoryList.h"
#include "platform/data/Recordset.h"
#include "tests/inventory/ObjectTest.h"

namespace tevra::test {
namespace {

class InventoryList : public ObjectTest {
 protected:
  void AddObject(const char* name, const char* person, double lei, double foreign) {
    company_.Open().Execute(
        "INSERT INTO I_INV (COD, DENUMIRE, PERS, VAL_CUMP, VAL_CUMP_VAL) VALUES (?, ?, ?, ?, ?)",
        {name, name, person, lei, foreign});
  }
  std::string Names(const std::string& sql, const Values& params = {}) {
    Recordset rows = company_.Open().OpenKeyset(sql, params);
    std::string names;
    for (; !rows.Eof(); rows.MoveNext()) names += rows.Get("DENUMIRE").AsText() + ";";
    return names;
  }
};

TEST_F(InventoryList, EveryObjectIsThereOnceWithWhatNamesItHas) {
  Connection file = company_.Open();
  file.Execute("INSERT INTO I_LOCALIZARE (COD, TITLU) VALUES ('H1', 'Hala')");
  file.Execute("INSERT INTO Kv_CC (COD, TITLU) VALUES ('C1', 'Sectia')");
  pAdaugaObiect(FullCard());
  ObjectCard orphan = FullCard();
  orphan.text = {"2", "X", "Fara", "X", "", "99", "99", "x", "", "", ""};
  pAdaugaObiect(orphan);
  Recordset rows = file.OpenKeyset(ObjectListStatement() + kNewestObjectFirst, {},
                                   {kTotalledObjectFields.begin(), kTotalledObjectFields.end()});
  ASSERT_EQ(rows.RecordCount(), 2u);
  EXPECT_EQ(rows.Get("COD"), Value("2"));
  for (const char* name : {"CC", "LOC", "FURNIZ", "TVA"}) {
    EXPECT_TRUE(rows.Get(name).IsNull()) << name;
  }
  rows.MoveNext();
  EXPECT_EQ(rows.Get("CC"), Value("Sectia"));
  EXPECT_EQ(rows.Get("LOC"), Value("Hala"));
  EXPECT_EQ(rows.Get("FURNIZ"), Value("O'NEIL & FIII"));
  EXPECT_EQ(rows.Get("TVA").AsDouble(), 4445);
  EXPECT_EQ(rows.Total("VAL_CUMP"), 972);
  EXPECT_EQ(rows.Total("VAL_CUMP_VAL"), 243.782);
}

TEST_F(InventoryList, SearchesFindTheBeginningOfNameOrPerson) {
  AddObject("Trusa", "Ion", 1, 1);
  AddObject("Scara 'mare'", "O'Neil", 1, 1);
  AddObject("trusa veche", "Maria", 1, 1);
  EXPECT_EQ(Names(ObjectsByNameStatement(), {"tru%"}), "trusa veche;Trusa;");
  EXPECT_EQ(Names(ObjectsByNameStatement(), {"Scara '%"}), "Scara 'mare';");
  EXPECT_EQ(Names(ObjectsByNameStatement(), {"rusa%"}), "");
  EXPECT_EQ(Names(ObjectsByPersonStatement(), {"O'N%"}), "Scara 'mare';");
  EXPECT_EQ(Names(AllObjectsStatement()), "trusa veche;Scara 'mare';Trusa;");
}

TEST_F(InventoryList, TheRowsOfTheCommandLineHaveExactTotals) {
  EXPECT_EQ(ForEachObject(company_.Open(), [](const Values&) {}).objects, 0);
  AddObject("A", "p", 0.1, 1.001);
  AddObject("B", "p", 0.2, 2.002);
  std::vector<Values> rows;
  const ObjectTotals totals =
      ForEachObject(company_.Open(), [&](const Values& row) { rows.push_back(row); });
  ASSERT_EQ(totals.objects, 2);
  EXPECT_EQ(rows[0][2], Value("B"));
  EXPECT_EQ(rows[1][10], Value(0.1));
  EXPECT_EQ(rows[1][13], Value::YesNo(false));
  EXPECT_EQ(totals.sums[10], Value(0.3));
  EXPECT_EQ(totals.sums[12], Value(3.003));
  EXPECT_TRUE(totals.sums[11].IsNull());
}

}  // namespace
}  // namespace tevra::test
