// The attribute leaf: one keyword or one value of a statement.
//
// A leaf writes prefix + value + suffix, then its children, then its postfix, and only when it is
// modified (its current value differs from its initial value). The blanks a statement needs are part
// of the texts ("DEFAULT ", "USING INDEX "). A flag keyword is a leaf whose value is the keyword
// itself: the host sets LOGGING or NOLOGGING, the library never composes a NO form.
#ifndef QARVELT_CORE_ATTR_H
#define QARVELT_CORE_ATTR_H

#include "qarvelt/core/clause.h"
#include "qarvelt/core/cloneable.h"

namespace qarvelt {

class CSQLAttr : public CSQLClause {
 public:
  // A null validator installs CSQLUtil::IsValid, which accepts every value.
  explicit CSQLAttr(const char* name,
                    const char* initValue = "",
                    const char* value = "",
                    const char* prefix = "",
                    const char* suffix = "",
                    const char* postfix = "",
                    int (*validator)(const char*) = nullptr,
                    CSQLClause* linked = nullptr);
  // An unnamed leaf without texts: the shell used by clones and derived leaf classes.
  explicit CSQLAttr(bool bInit = true, int nOraVersion = kLatestRelease);
  ~CSQLAttr() override;

  std::string GetValue() override;
  CSQLClause* operator*() override;
  bool hasUnused() override;

 protected:
  int setValue(const char* path, const char* value) override;
  int setInit(const char* path, const char* value) override;
  bool isModified(const char* path) override;
  int preModifiedSQL(const char* path, std::string& text) override;
  int postModifiedSQL(const char* path, std::string& text) override;
  void init() override;
  void resetUsedAttrs() override;
};

// The data type of a column: the type name is the leaf's value, its sizes stand in a bracketed
// container below it ("DATATYPE;LENGTH", "DATATYPE;SCALE" with prefix ",", "DATATYPE;UNIT").
// NUMBER with length 10 and scale 2 writes NUMBER (10 ,2); VARCHAR2 30 CHAR writes VARCHAR2 (30 CHAR).
class CSQLAttrDataType : public Cloneable<CSQLAttrDataType, CSQLAttr> {
 public:
  explicit CSQLAttrDataType(bool bInit = true, int nOraVersion = kLatestRelease);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CORE_ATTR_H
