// Constraint information: a table's out-of-line constraints (CSQLInfoConstraints with its
// CConstraint items) and the constraint state record that inline and out-of-line constraints share
// (CSQLPUBLIC::CConstraintState).
//
// Constraint values: "NAME" (a changed name is a rename), "TYPE", "COLUMNS" (a list of column names;
// SetColumnsString("A,B") fills it), "REF_SCHEMA", "REF_TABLE", "REF_COLUMNS" ("C1,C2"),
// "REF_DELETE", "CHECK" (the condition), "CASCADE" (CASCADE when the constraint is dropped with
// CASCADE).
//
// "TYPE" accepts, in any letter case: PRIMARY KEY, PRIMARY or P; UNIQUE or U; FOREIGN KEY, FOREIGN,
// REFERENCES or R; CHECK or C (the last letters are Oracle's own constraint type codes).
// "REF_DELETE" accepts CASCADE, SET NULL (or NULL); anything else writes no ON DELETE clause.
//
// BuildSQL, on the "C_CONSTRAINT" clause of an ALTER TABLE statement, runs in this order:
//   1. added constraints are filled into the clause's "LIST" and stay in the tree (ADD c1 ADD c2),
//      for the caller to write;
//   2. one statement per dropped constraint: DROP CONSTRAINT name [CASCADE];
//   3. one statement per state change of a kept constraint: MODIFY CONSTRAINT name ENABLE ...;
//   4. one statement per renamed constraint: RENAME CONSTRAINT old TO new.
// A renamed constraint's state change is not scripted in the same run; changed columns, references
// or conditions of an existing constraint are not scripted at all (drop it and add it anew).
#ifndef QARVELT_INFO_CONSTRAINTS_H
#define QARVELT_INFO_CONSTRAINTS_H

#include "qarvelt/info/base.h"

namespace qarvelt {

class CSQLPUBLIC {
 public:
  // DEFERRABLE or NOT DEFERRABLE, INITIALLY (IMMEDIATE or DEFERRED), ENABLE or DISABLE, VALIDATE or
  // NOVALIDATE, RELY or NORELY, and CASCADE (kept, not written by the state clause).
  class CConstraintState : public CSQLInfoBase {
   public:
    CConstraintState();
    // 2 without touching `clause` when nothing changed; else sets "DEFERRABLE", "INITIALLY",
    // "ENABLE", "VALIDATE" and "RELY" of `clause` (a constraint state clause) to their changes.
    int BuildSQL(std::string what,
                 CSQLClause* clause,
                 CSQLClause* statement,
                 std::vector<std::string>* out,
                 const char* extra) override;

   protected:
    void init() override;
  };
};

// The kinds of constraint that "TYPE" names, read as described above.
enum class ConstraintKind { None, PrimaryKey, Unique, ForeignKey, Check };
ConstraintKind ConstraintKindOf(const std::string& type);

// One out-of-line constraint (CSQLInfoConstraints::CConstraint); its name is the constraint's name
// as the record was loaded.
class CSQLInfoConstraint : public CSQLInfoBase {
 public:
  explicit CSQLInfoConstraint(const char* name);
  ~CSQLInfoConstraint() override;

  CSQLPUBLIC::CConstraintState* STATE() { return &m_state; }
  // The constrained columns as one text, "A,B", and back.
  void SetColumnsString(std::string columns);
  std::string GetColumnsString();

  // Appends a new constraint item to `clause` (a list of out-of-line constraints) and fills it from
  // the current values.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;
  // Own values and the state.
  bool IsModified(const char* type = nullptr) override;
  void Reset() override;

 protected:
  void init() override;

 private:
  CSQLPUBLIC::CConstraintState m_state;
};

class CSQLInfoConstraints : public CSQLInfoCollection<CSQLInfoConstraint> {
 public:
  using CConstraint = CSQLInfoConstraint;

  CSQLInfoConstraints();

  int AddConstraint(const char* name, bool existing);
  int DropConstraint(const char* name, bool remove);
  int UnDropConstraint(const char* name);
  CConstraint* GetConstraint(int index) const { return itemAt(index); }
  CConstraint* GetConstraint(const char* name) const { return itemNamed(name); }

  // The full run described above; the selector makes no difference. `clause` is the "C_CONSTRAINT"
  // clause, `statement` the ALTER TABLE statement.
  int BuildSQL(std::string what,
               CSQLClause* clause,
               CSQLClause* statement,
               std::vector<std::string>* out,
               const char* extra) override;
};

}  // namespace qarvelt

#endif  // QARVELT_INFO_CONSTRAINTS_H
