#include "platform/rowset/XmlReader.h"

#include <algorithm>
#include <iterator>

#include <libxml/xmlreader.h>

#include "platform/text/Failure.h"

namespace tevra {

namespace {

std::string_view ViewOf(const xmlChar* text) {
  return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

int ReadStream(void* context, char* buffer, int length) {
  auto& in = *static_cast<std::istream*>(context);
  try {
    in.read(buffer, length);
    return in.bad() ? -1 : static_cast<int>(in.gcount());
  } catch (...) {  // no exception may pass through the parser
    return -1;
  }
}

// The parser's own words follow in brackets, for those who look for the cause.
std::string TextOf(const xmlError& met) {
  struct Known {
    int code;
    const char* text;
  };
  static constexpr Known kKnown[] = {
      {XML_ERR_DOCUMENT_EMPTY, "documentul este gol"},
      {XML_ERR_DOCUMENT_END, "documentul nu este intreg"},
      {XML_ERR_TAG_NOT_FINISHED, "documentul nu este intreg"},
      {XML_ERR_GT_REQUIRED, "documentul nu este intreg"},
      {XML_ERR_LTSLASH_REQUIRED, "documentul nu este intreg"},
      {XML_ERR_TAG_NAME_MISMATCH, "un element nu se inchide"},
      {XML_ERR_ATTRIBUTE_REDEFINED, "un atribut apare de doua ori"},
      {XML_ERR_INVALID_CHAR, "un caracter nu este permis"},
      {XML_ERR_INVALID_ENCODING, "un caracter nu este al codificarii"},
      {XML_ERR_UNSUPPORTED_ENCODING, "codificarea este necunoscuta"},
      {XML_ERR_UNDECLARED_ENTITY, "o entitate nu este definita"},
      {XML_ERR_ENTITY_LOOP, "entitatile nu se accepta"},
      {XML_ERR_INTERNAL_ERROR, "documentul are prea multe niveluri"},
  };
  const auto known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                  [&](const Known& each) { return each.code == met.code; });
  const std::string text =
      known == std::end(kKnown) ? "documentul XML nu este corect" : known->text;
  std::string reason = met.message ? met.message : "";
  reason.erase(std::find(reason.begin(), reason.end(), '\n'), reason.end());
  while (!reason.empty() && reason.back() == ' ') reason.pop_back();
  return reason.empty() ? text : text + " (" + reason + ")";
}

// libxml2 stores an element's line in 16 bits.
constexpr long kLastKeptLine = 65534;

}  // namespace

struct XmlReader::Parser {
  std::string name;
  xmlTextReaderPtr reader = nullptr;
  bool inAttributes = false;
  std::string error;  // the first one
  int errorLine = 0;

  ~Parser() { xmlFreeTextReader(reader); }

  void KeepError(const xmlError& met) {
    if (met.level < XML_ERR_ERROR || !error.empty()) return;
    error = TextOf(met);
    errorLine = met.line;
  }

  [[noreturn]] void Throw(long number, int line, const std::string& text) const {
    const std::size_t slash = name.find_last_of("/\\");
    const std::string bare = slash == name.npos ? name : name.substr(slash + 1);
    throw Failure(number, bare + ", linia " + std::to_string(line) + ": " + text, name);
  }
};

XmlReader::XmlReader(std::istream& in, std::string name) : parser_(std::make_unique<Parser>()) {
  parser_->name = std::move(name);
  // Entities are not resolved and document types not loaded; network access is off in any case.
  parser_->reader = xmlReaderForIO(ReadStream, nullptr, &in, nullptr, nullptr,
                                   XML_PARSE_NONET | XML_PARSE_COMPACT);
  if (!parser_->reader) parser_->Throw(kNotReadable, 1, "fisierul nu poate fi citit");
  xmlTextReaderSetStructuredErrorHandler(
      parser_->reader,
      [](void* context, auto* error) { static_cast<Parser*>(context)->KeepError(*error); },
      parser_.get());
  while (Read()) {
    if (xmlTextReaderNodeType(parser_->reader) == XML_READER_TYPE_ELEMENT) return;
  }
  Fail(kNotReadable, "nu este un document XML");
}

XmlReader::~XmlReader() = default;

bool XmlReader::Read() {
  parser_->inAttributes = false;
  const int read = xmlTextReaderRead(parser_->reader);
  if (!parser_->error.empty()) {
    parser_->Throw(kNotReadable, parser_->errorLine, parser_->error);
  }
  if (read < 0) Fail(kNotReadable, "fisierul este deteriorat");
  if (read == 1 && xmlTextReaderNodeType(parser_->reader) == XML_READER_TYPE_DOCUMENT_TYPE) {
    Fail(kNotReadable, "tipul de document (DOCTYPE) nu se accepta");
  }
  return read == 1;
}

std::string_view XmlReader::Name() const {
  return ViewOf(xmlTextReaderConstLocalName(parser_->reader));
}

std::string_view XmlReader::Space() const {
  return ViewOf(xmlTextReaderConstNamespaceUri(parser_->reader));
}

bool XmlReader::Is(std::string_view space, std::string_view name) const {
  return Name() == name && Space() == space;
}

int XmlReader::Depth() const {
  const int depth = xmlTextReaderDepth(parser_->reader);
  return parser_->inAttributes ? depth - 1 : depth;
}

bool XmlReader::HasContent() const {
  xmlTextReaderMoveToElement(parser_->reader);
  parser_->inAttributes = false;
  return xmlTextReaderIsEmptyElement(parser_->reader) == 0;
}

bool XmlReader::NextChild(int parentDepth) {
  if (Depth() == parentDepth && !HasContent()) return false;
  while (Read()) {
    const int depth = Depth();
    if (depth == parentDepth) return false;
    if (depth == parentDepth + 1 &&
        xmlTextReaderNodeType(parser_->reader) == XML_READER_TYPE_ELEMENT) {
      return true;
    }
  }
  return false;
}

bool XmlReader::NextAttribute(XmlAttribute& attribute) {
  parser_->inAttributes = xmlTextReaderMoveToNextAttribute(parser_->reader) == 1;
  if (!parser_->inAttributes) {
    xmlTextReaderMoveToElement(parser_->reader);
    return false;
  }
  attribute.space = Space();
  attribute.name = Name();
  attribute.value = ViewOf(xmlTextReaderConstValue(parser_->reader));
  return true;
}

std::string XmlReader::Text() {
  std::string text;
  const int depth = Depth();
  if (!HasContent()) return text;
  while (Read() && Depth() > depth) {
    const int type = xmlTextReaderNodeType(parser_->reader);
    const bool isText = type == XML_READER_TYPE_TEXT || type == XML_READER_TYPE_CDATA ||
                        type == XML_READER_TYPE_SIGNIFICANT_WHITESPACE;
    if (isText && Depth() == depth + 1) text += ViewOf(xmlTextReaderConstValue(parser_->reader));
  }
  return text;
}

void XmlReader::Finish() {
  while (Read()) {
  }
}

int XmlReader::Line() const {
  const xmlNodePtr node = xmlTextReaderCurrentNode(parser_->reader);
  const long line = node ? xmlGetLineNo(node) : 0;
  if (line > 0 && line <= kLastKeptLine) return static_cast<int>(line);
  return xmlTextReaderGetParserLineNumber(parser_->reader);
}

void XmlReader::Fail(long number, const std::string& text) const {
  parser_->Throw(number, Line(), text);
}

}  // namespace tevra
