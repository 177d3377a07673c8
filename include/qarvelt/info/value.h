// Named values with an initial and a current text: the properties of an information record.
//
// The initial text is the object as it stands in the database, the current text the object as the
// caller wants it. A value is modified when the two differ (byte for byte, case-sensitive). Records
// hand a value to a statement tree as its change (operator*): the current text when modified, else
// the empty text, which the tree reads as "not set".
#ifndef QARVELT_INFO_VALUE_H
#define QARVELT_INFO_VALUE_H

#include <memory>
#include <string>
#include <vector>

namespace qarvelt {

class CSQLValue {
 public:
  // The type (the value's name in its record), the current text and the initial text; null is "".
  CSQLValue(const char* type, const char* value, const char* init);
  CSQLValue(const CSQLValue& other) = default;
  CSQLValue& operator=(const CSQLValue& other) = default;
  virtual ~CSQLValue();

  std::string GetType() const { return m_strType; }
  std::string GetValue() const { return m_strValue; }
  std::string GetInit() const { return m_strInit; }
  // A fresh starting point: initial and current text both become `text`.
  void SetInit(const char* text);
  // The current text only.
  void SetValue(const char* text);

  virtual bool IsModified();
  // The current text goes back to the initial text.
  virtual void Reset();

  // The change: the current text when modified, else "".
  std::string operator*();
  // Values compare by type only.
  bool operator==(const CSQLValue& other) const { return m_strType == other.m_strType; }
  bool operator==(const char* type) const;

 protected:
  std::string m_strType;
  std::string m_strValue;
  std::string m_strInit;
};

// A multi-valued property (the columns of a constraint, the bounds of a partition): an ordered list
// of values, no two of the same type. Holding entries is what counts as a change.
class CSQLValues : public CSQLValue {
 public:
  explicit CSQLValues(const char* name);
  CSQLValues(const CSQLValues& other);
  CSQLValues& operator=(const CSQLValues& other);
  ~CSQLValues() override;

  // Appends a value unless one of that type is there already (then nothing changes).
  void AddValue(const char* type, const char* value, const char* init);
  int GetCount() const { return static_cast<int>(m_values.size()); }
  // The current text of the entry at `index`, or "" outside the list.
  std::string GetValue(int index) const;
  using CSQLValue::GetValue;
  // The entry at `index`, or null.
  CSQLValue* GetEntry(int index) const;

  // True exactly when the list holds at least one entry.
  bool IsModified() override;
  // Resets every entry, then removes them all.
  void Reset() override;

 private:
  std::vector<std::unique_ptr<CSQLValue>> m_values;
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_VALUE_H
