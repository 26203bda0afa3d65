#include "app/batch/Entries.h"
#include "app/batch/NoteTable.h"
#include "app/batch/Refusal.h"
#include "app/batch/WholeNumber.h"
#include "app/batch/commands/Commands.h"
#include "inventory/ObjectLists.h"
#include "inventory/ObjectNotes.h"
#include "inventory/ObjectSave.h"
#include "platform/system/Clock.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

using namespace object;

// The entry of the list that fills a box, as picking it in the window's list gives it.
Entry Picked(Connection& company, Text box, const std::string& written, const char* what) {
  const ObjectCodeList& list = ListOf(box);
  return PickEntry(company, list.list, list.boundColumn, list.listField, written, what);
}

DateTime DayFrom(const std::string& written) {
  return written.empty() ? clock::Today() : ParseDate(written);
}

ObjectCard CardOf(Connection& company, const ObjectOptions& options) {
  ObjectCard card;
  card.text[kCode] = options.code;
  card.text[kName] = options.name;
  card.text[kDocument] = options.document;
  card.text[kRemarks] = options.notes;
  card.text[kPerson] = options.person;
  card.text[kCentre] = Picked(company, kCentre, options.centre, "Centrul de cost").code;
  card.text[kLocation] = Picked(company, kLocation, options.location, "Localizarea").code;
  card.text[kSupplier] = Picked(company, kSupplier, options.supplier, "Furnizorul").code;
  card.text[kAccount] = Picked(company, kAccount, options.account, "Contul").code;
  const Entry vat = Picked(company, kVat, options.vat, "Cota de TVA");
  card.text[kVat] = vat.code;
  card.vat = vat.text;
  card.number = {NumberFrom(options.value), NumberFrom(options.rate),
                 NumberFrom(options.currencyValue)};
  if (card.number[kForeignValue].IsNull()) {
    const auto foreign = ForeignValue(card.number[kValue], card.number[kRate]);
    if (foreign) card.number[kForeignValue] = *foreign;
  }
  card.date = {DayFrom(options.bought), DayFrom(options.inService), clock::Today()};
  return card;
}

// Returns the notes that the user agreed to lose.
DocumentUse CheckNew(const ObjectCard& card) {
  if (CurrentSession().contObiecteInventar.empty()) {
    throw Refusal("Va rog configurati contul de obiecte de inventar!");
  }
  if (const auto refusal = RefusalToSave(card)) throw Refusal(refusal->message);
  if (card.number[kRate].IsText()) {
    throw Refusal("Cursul " + card.number[kRate].Text() + " nu este un numar !");
  }
  DocumentUse use = NotesBeforePurchase(card);
  if (!MayDelete(use)) throw Refusal("Nu s-a efectuat nimic !");
  return use;
}

Note PostPurchase(const ObjectCard& card, const DocumentUse& agreed) {
  try {
    return pAddNoteContabile(card, agreed);
  } catch (const Failure& failure) {
    throw Refusal("Obiectul a fost adaugat, dar nota contabila nu a fost scrisa !\n" +
                      ErrorText(failure, CurrentSession().selectedDatabase),
                  failure);
  }
}

}  // namespace

void AddObject(Connection& company, const ObjectOptions& options, std::ostream& out) {
  const ObjectCard card = CardOf(company, options);
  const DocumentUse agreed = CheckNew(card);
  const std::int32_t id = pAdaugaObiect(card);
  out << "Obiectul cu numarul curent " << id << " a fost adaugat\n";
  WriteNote(PostPurchase(card, agreed), out);
}

void WriteOffObject(Connection& company, const std::string& nrcrt, std::ostream& out) {
  const std::optional<std::int32_t> id = WholeNumber(nrcrt);
  const auto stored = id ? ReadObject(company, *id) : std::nullopt;
  if (!stored) throw Refusal("Obiectul de inventar nu exista");
  if (const auto refusal = RefusalToWriteOff(stored->card, stored->writtenOff)) {
    throw Refusal(refusal->message);
  }
  const WriteOffResult result = WriteOff(stored->card, *id);
  if (result.refusal) throw Refusal(result.refusal->message);
  out << "Descarcare cu succes !\n";
  WriteNote(result.note, out);
}

}  // namespace tevra::batch
