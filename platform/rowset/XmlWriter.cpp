#include "platform/rowset/XmlWriter.h"

#include <libxml/xmlwriter.h>

#include "platform/rowset/XmlText.h"
#include "platform/text/FailureText.h"

namespace tevra {

namespace {

// A failure is in the stream's state. It is not returned to the library, which would print it on
// the error output.
int WriteStream(void* context, const char* buffer, int length) {
  auto& out = *static_cast<std::ostream*>(context);
  try {
    out.write(buffer, length);
  } catch (...) {  // no exception may pass through the XML writer
    out.exceptions(std::ios::goodbit);
    out.setstate(std::ios::badbit);
  }
  return length;
}

const xmlChar* CharsOf(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

}  // namespace

struct XmlWriter::Output {
  std::ostream& out;
  xmlTextWriterPtr writer = nullptr;
  std::string escaped;

  explicit Output(std::ostream& stream) : out(stream) {
    xmlOutputBufferPtr buffer = xmlOutputBufferCreateIO(WriteStream, nullptr, &out, nullptr);
    if (buffer) writer = xmlNewTextWriter(buffer);
    if (!writer) throw std::bad_alloc();
    xmlTextWriterSetQuoteChar(writer, '\'');
  }
  ~Output() { xmlFreeTextWriter(writer); }

  void Check(int written) const {
    if (written < 0 || !out) throw ValueFailure(kDiskFull);
  }

  // The library does not escape the single quote inside an attribute, so it is done here.
  void WriteText(std::string_view text) {
    escaped.clear();
    AppendXmlText(escaped, text);
    WriteRaw(escaped);
  }

  void WriteRaw(std::string_view markup) {
    Check(xmlTextWriterWriteRawLen(writer, reinterpret_cast<const xmlChar*>(markup.data()),
                                   static_cast<int>(markup.size())));
  }
};

XmlWriter::XmlWriter(std::ostream& out) : output_(std::make_unique<Output>(out)) {}
XmlWriter::~XmlWriter() = default;

void XmlWriter::StartElement(const std::string& name) {
  output_->Check(xmlTextWriterStartElement(output_->writer, CharsOf(name)));
}

void XmlWriter::Attribute(const std::string& name, std::string_view value) {
  output_->Check(xmlTextWriterStartAttribute(output_->writer, CharsOf(name)));
  output_->WriteText(value);
  output_->Check(xmlTextWriterEndAttribute(output_->writer));
}

void XmlWriter::Text(std::string_view text) {
  output_->WriteText(text);
}
void XmlWriter::Raw(std::string_view markup) {
  output_->WriteRaw(markup);
}
void XmlWriter::EndElement() {
  output_->Check(xmlTextWriterEndElement(output_->writer));
}

void XmlWriter::Flush() {
  output_->Check(xmlTextWriterFlush(output_->writer));
  output_->out.flush();
  output_->Check(0);
}

}  // namespace tevra
