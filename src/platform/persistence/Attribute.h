// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace korvel::platform {

using Bytes = std::vector<std::byte>;

/// A stored value of an entity that may be unset. An unset one reads as 0, false or empty.
/// T is bool, an integer of up to 64 bits, float, double, std::string or Bytes.
/// Read and written through the owning ManagedObject, which keeps track of changes.
template <class T>
class Attribute {
 public:
  bool isSet() const { return m_set; }

 private:
  template <class U>
  friend class ChangeOf;
  friend class ManagedObject;
  template <auto Member>
  friend struct AttributeAccess;

  T m_value{};
  bool m_set = false;
};

/// Whether an attribute is read together with its row or only when first asked for.
enum class Fetch { withRow, onDemand };

}  // namespace korvel::platform
