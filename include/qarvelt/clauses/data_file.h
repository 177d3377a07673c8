// A datafile or tempfile clause ("C_DATA_FILE"), shared by CREATE TABLESPACE and
// the database statements that name files (CREATE DATABASE, ALTER DATABASE, ALTER TABLESPACE):
//
//   '/u01/oradata/users01.dbf' SIZE 100M REUSE AUTOEXTEND ON NEXT 10M MAXSIZE UNLIMITED
//
// Node names:
//   FILE                the file name, quoted by the leaf ('...')
//   SIZE                SIZE n, the size as given (100M)
//   REUSE               the keyword REUSE
//   AUTOEXTEND          OFF or ON, written AUTOEXTEND OFF / AUTOEXTEND ON; below it:
//     AUTOEXTEND;NEXT     NEXT n
//     AUTOEXTEND;MAXSIZE  MAXSIZE n, or MAXSIZE UNLIMITED
//
// AUTOEXTEND OFF ends the clause: NEXT and MAXSIZE belong to AUTOEXTEND ON only and are left out
// after OFF. NEXT and MAXSIZE are written after AUTOEXTEND ON; the host gives AUTOEXTEND with them.
//
// The clause is the same for every release code (AUTOEXTEND came with Oracle 7). A file name left
// empty is a file named by Oracle-managed files (Oracle 9i on): the clause then starts with SIZE.
//
// As an item of a list of files the clause is built with its naming constructor: the item's name is
// the host's key for the file (CREATE TABLESPACE's "LIST_DATAFILE;<name>;FILE"); the file name itself
// is still the FILE leaf.
#ifndef QARVELT_CLAUSES_DATA_FILE_H
#define QARVELT_CLAUSES_DATA_FILE_H

#include <string>

#include "qarvelt/core/builder.h"
#include "qarvelt/core/cloneable.h"

namespace qarvelt {

// AUTOEXTEND OFF | ON [NEXT n] [MAXSIZE n | UNLIMITED]: the "AUTOEXTEND" leaf with "NEXT" and "MAXSIZE"
// below it, as every statement that sizes a datafile or tempfile writes it (this clause, ALTER
// DATABASE DATAFILE ..., ALTER TABLESPACE ...).
build::Node AutoextendLeaf();

class CSQLClauseDataFile : public Cloneable<CSQLClauseDataFile> {
 public:
  explicit CSQLClauseDataFile(bool bInit = true, int nOraVersion = 7);
  // Builds the tree and names the node: a file of a DATAFILE or TEMPFILE list.
  explicit CSQLClauseDataFile(const char* name);

  // After-prefix callback of the "AUTOEXTEND" leaf: ends the leaf (returns 1) when its text is
  // exactly AUTOEXTEND OFF, so that no NEXT or MAXSIZE follows.
  static int CbAfterPrefix(std::string& text, std::string& value, std::string& initial, CSQLClause* node);

 protected:
  void init() override;
};

}  // namespace qarvelt

#endif  // QARVELT_CLAUSES_DATA_FILE_H
