// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/XmlDocument.h"

#include <gtest/gtest.h>

#include "platform/text/UserError.h"

namespace korvel::platform {
namespace {

std::string refusalOf(const std::string& xml) {
  try {
    const XmlDocument document(xml);
    return "read: " + std::string(document.root().text());
  } catch (const UserError& error) {
    return error.what();
  }
}

std::string nested(int depth) {
  std::string xml;
  for (int i = 0; i < depth; ++i) xml += "<a>";
  return xml;
}

TEST(XmlDocumentTest, tellsElementsTextsAndAttributes) {
  const XmlDocument document(
      "<?xml version='1.0' encoding='ISO-8859-1'?>\n<!DOCTYPE s SYSTEM 'http://nowhere/s.dtd'>\n"
      "<s xmlns:x='u' n=' 7 ' a='&lt;\xE9'><!-- no -->\n<x:t> 1.5 </x:t><u/>left<t><![CDATA[<2>]]>"
      "</t> &amp;\n</s>");
  const auto root = document.root();
  EXPECT_EQ(root.attribute("a"), "<\u00e9");
  EXPECT_EQ(root.integerAttribute("n"), 7);
  EXPECT_EQ(root.text(), "left &");
  EXPECT_EQ(root.child("t").number(), 1.5);
  EXPECT_FALSE(root.child("t").integer());
  EXPECT_EQ(root.child("t").line(), 4);
  std::string all;
  for (const auto& each : root.children())
    all.append(each.name()).append("=").append(each.text()) += ';';
  EXPECT_EQ(all, "t=1.5;u=;t=<2>;");
  EXPECT_EQ(root.child("u").child("v").child("w").attribute("n"), "");
}

TEST(XmlDocumentTest, refusesWhatIsBrokenOrDangerous) {
  EXPECT_EQ(refusalOf("<a>\n<b></a>").find("its XML is broken in line 2: "), 0U);
  EXPECT_EQ(refusalOf(" ").find("its XML is broken in line "), 0U);
  EXPECT_EQ(refusalOf(""), "it is empty");
  EXPECT_EQ(refusalOf("<!DOCTYPE a [\n<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>&e;</a>"),
            "line 2 declares an entity, which is not read for safety's sake");
  EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ENTITY % e 'x'>]><a/>").find("line 1 declares"), 0U);
  EXPECT_NE(refusalOf(nested(5000)).find("broken"), std::string::npos);
  EXPECT_EQ(refusalOf(std::string(XmlDocument::kMostBytes + 1, ' ')),
            "it has more than 32 MB of XML");
}

}  // namespace
}  // namespace korvel::platform
