// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/XmlWriter.h"

#include <libxml/xmlwriter.h>

#include <new>

#include "platform/text/Utf8.h"

namespace korvel::platform {
namespace {

struct FreeBuffer {
  void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};

struct FreeWriter {
  void operator()(xmlTextWriter* writer) const { xmlFreeTextWriter(writer); }
};

const xmlChar* asXml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

/// The library fails for lack of memory only: texts are made fit for it before.
void require(int result) {
  if (result < 0) throw std::bad_alloc();
}

}  // namespace

struct XmlWriter::Document {
  std::unique_ptr<xmlBuffer, FreeBuffer> buffer{xmlBufferCreate()};
  std::unique_ptr<xmlTextWriter, FreeWriter> writer{buffer ? xmlNewTextWriterMemory(buffer.get(), 0)
                                                           : nullptr};
};

XmlWriter::XmlWriter(const char* root) : XmlWriter(root, nullptr, nullptr) {}

XmlWriter::XmlWriter(const char* root, const char* publicId, const char* systemId)
    : m_document(std::make_unique<Document>()) {
  xmlTextWriter* writer = m_document->writer.get();
  if (!writer) throw std::bad_alloc();
  // The text grows by doubling, not by what is needed next.
  xmlBufferSetAllocationScheme(m_document->buffer.get(), XML_BUFFER_ALLOC_DOUBLEIT);
  require(xmlTextWriterSetIndent(writer, 1));
  // A line for each tag, but no blanks: of a long document they would be half the work.
  require(xmlTextWriterSetIndentString(writer, asXml("")));
  require(xmlTextWriterStartDocument(writer, "1.0", "UTF-8", nullptr));
  if (publicId)
    require(xmlTextWriterWriteDTD(writer, asXml(root), asXml(publicId), asXml(systemId), nullptr));
  require(xmlTextWriterStartElement(writer, asXml(root)));
}

XmlWriter::~XmlWriter() = default;

XmlWriter::Element XmlWriter::open(const char* name) {
  require(xmlTextWriterStartElement(m_document->writer.get(), asXml(name)));
  return Element(*this);
}

// Called by destructors: what fails here fails again in `finish`.
void XmlWriter::close() { xmlTextWriterEndElement(m_document->writer.get()); }

void XmlWriter::attribute(const char* name, std::string_view value) {
  require(xmlTextWriterWriteAttribute(m_document->writer.get(), asXml(name),
                                      asXml(printable(value).c_str())));
}

void XmlWriter::text(std::string_view value) {
  require(xmlTextWriterWriteString(m_document->writer.get(), asXml(printable(value).c_str())));
}

void XmlWriter::add(const char* name, std::string_view text) {
  require(xmlTextWriterWriteElement(m_document->writer.get(), asXml(name),
                                    asXml(printable(text).c_str())));
}

void XmlWriter::add(const char* name, int number) { add(name, std::to_string(number)); }

void XmlWriter::add(const char* name) {
  xmlTextWriter* writer = m_document->writer.get();
  require(xmlTextWriterStartElement(writer, asXml(name)));
  require(xmlTextWriterEndElement(writer));
}

std::string XmlWriter::finish() {
  require(xmlTextWriterEndDocument(m_document->writer.get()));
  require(xmlTextWriterFlush(m_document->writer.get()));
  const xmlBuffer* buffer = m_document->buffer.get();
  return {reinterpret_cast<const char*>(xmlBufferContent(buffer)),
          static_cast<std::size_t>(xmlBufferLength(buffer))};
}

}  // namespace korvel::platform
