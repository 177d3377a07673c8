#include "qarvelt/statements/alter_database.h"

#include <string>
#include <utility>
#include <vector>

#include "qarvelt/clauses/data_file.h"
#include "qarvelt/core/builder.h"

namespace qarvelt {

using namespace build;

namespace {

// A list of quoted file names, written 'a','b'.
Node files(const char* name = "LIST") {
  return list(name, ",", "", "");
}

// A quoted leaf without children: AS 'x'.
Node quoted(const char* name, const char* keyword) {
  return leaf(name, keyword, "", "'");
}

// AUTOEXTEND OFF | ON [NEXT size] [MAXSIZE size | UNLIMITED] of a data or temp file.
Node autoextend() {
  return named("C_AUTOEXTEND", AutoextendLeaf());
}

// STANDBY before LOGFILE, from Oracle9i on.
Node standby(int v) {
  return when(v >= 3, leaf("STANDBY"));
}

// The files that a data file or temp file alteration applies to, and the alteration: the keyword
// (DATAFILE, TEMPFILE), the list "LIST" of files, then the alteration, an OR. The files name what is
// altered, they are not a change of their own: when a host splits several alterations of the same
// files over passes, each pass takes back the alteration it wrote but keeps the files for the next,
// and the clause writes nothing once no alteration is left.
class FileAlteration : public Cloneable<FileAlteration> {
 public:
  FileAlteration(const char* name, const char* keyword) : Cloneable(kLatestRelease) {
    setup(name, false);
    SetPrefix(keyword);
  }
  explicit FileAlteration(bool bInit = true, int nOraVersion = kLatestRelease) : Cloneable(nOraVersion) {
    setup("", bInit);
  }

  int GetModifiedSQL(const char* path, std::string& text) override {
    CSQLClause* change = alteration();
    if (change == nullptr || !change->IsModified("*")) {
      text.clear();
      return SQL_NOTHING;
    }
    return Cloneable::GetModifiedSQL(path, text);
  }

  bool hasUnused() override {
    CSQLClause* change = alteration();
    return change != nullptr && change->hasUnused();
  }

 protected:
  int preModifiedSQL(const char* /*path*/, std::string& text) override {
    text = GetPrefix();
    return SQL_OK;
  }
  int postModifiedSQL(const char* /*path*/, std::string& text) override {
    if (text == GetPrefix()) text.clear();
    return SQL_OK;
  }

  // Takes back what was written, then gives the files their names again.
  void resetUsedAttrs() override {
    std::vector<std::pair<CSQLClause*, std::string>> names;
    if (GetLength() > 0) collectLeaves(GetChild(0), names);
    Cloneable::resetUsedAttrs();
    for (auto& [file, name] : names)
      file->SetValue(nullptr, name.c_str());
  }

 private:
  CSQLClause* alteration() const { return GetLength() > 1 ? GetChild(1) : nullptr; }

  static void collectLeaves(CSQLClause* node, std::vector<std::pair<CSQLClause*, std::string>>& out) {
    for (int i = 0; i < node->GetLength(); ++i) {
      CSQLClause* child = node->GetChild(i);
      if (dynamic_cast<CSQLAttr*>(child) != nullptr) out.emplace_back(child, child->GetValue());
      collectLeaves(child, out);
    }
  }
};

Node fileAlteration(const char* name, const char* keyword, Node alternatives) {
  return node(new FileAlteration(name, keyword)).with(files(), std::move(alternatives));
}

// DATAFILE files ONLINE | OFFLINE [DROP] | RESIZE n | AUTOEXTEND ...
Node datafile() {
  return fileAlteration(
      "C_ALT_DB_DATAFILE",
      "DATAFILE",
      Or(leaf("ONLINE"), leaf("OFFLINE").with(leaf("DROP")), leaf("RESIZE", "RESIZE "), autoextend()));
}

// TEMPFILE files ONLINE | OFFLINE | RESIZE n | AUTOEXTEND ... | DROP [INCLUDING DATAFILES]; temp
// files came with Oracle8i, dropping them with Oracle9i.
Node tempfile(int v) {
  return fileAlteration("C_ALT_DB_TEMPFILE",
                        "TEMPFILE",
                        Or(leaf("ONLINE"),
                           leaf("OFFLINE"),
                           leaf("RESIZE", "RESIZE "),
                           autoextend(),
                           when(v >= 3, leaf("DROP").with(leaf("INCLUDING", "", "", " DATAFILES")))));
}

Node renameFile() {
  return named("C_ALT_DB_RENAME_FILE", And({"RENAME FILE", ""}, files(), And({"TO", ""}, files("LISTTO"))));
}

// ADD [STANDBY] LOGFILE [THREAD n] [GROUP n] ('a','b') SIZE n [REUSE]
Node addLogfile(int v) {
  return named("C_ALT_DB_ADD_LOGFILE",
               And({"ADD", ""},
                   standby(v),
                   And({"LOGFILE", ""},
                       leaf("THREAD", "THREAD "),
                       leaf("GROUP", "GROUP "),
                       And({"(", ")"}, files()),
                       leaf("SIZE", "SIZE "),
                       leaf("REUSE"))));
}

Node dropLogfile(int v) {
  return named("C_ALT_DB_DROP_LOGFILE",
               And({"DROP", ""}, standby(v), And({"LOGFILE", ""}, leaf("GROUP", "GROUP "))));
}

// ADD [STANDBY] LOGFILE MEMBER 'a' [REUSE] TO GROUP n; the REUSE applies to the last file named.
Node addMember(int v) {
  return named("C_ALT_DB_ADD_MEMBER",
               And({"ADD", ""},
                   standby(v),
                   And({"LOGFILE MEMBER", ""}, files(), leaf("REUSE"), leaf("GROUP", "TO GROUP "))));
}

Node dropMember(int v) {
  return named("C_ALT_DB_DROP_MEMBER", And({"DROP", ""}, standby(v), And({"LOGFILE MEMBER", ""}, files())));
}

// BACKUP CONTROLFILE TO 'file' [REUSE] | TO TRACE, the trace's options from Oracle 10g on. The file
// leaf closes its quote with the suffix, so that REUSE follows the name.
Node controlfile(int v) {
  return named(
      "C_ALT_DB_CONTROLFILE",
      Or({"BACKUP CONTROLFILE TO", ""},
         leaf("TRACE").with(when(v >= 5, And(quoted("AS", "AS '"), leaf("REUSE"), leaf("RESETLOGS")))),
         leaf("FILE", "'", "'").with(leaf("REUSE"))));
}

// [ADD | DROP] SUPPLEMENTAL LOG DATA [(PRIMARY KEY,UNIQUE INDEX) COLUMNS]
Node supplemental() {
  return named("C_ALT_DB_SUPPLEMENTAL",
               leaf("SUPPLEMENTAL", "", " SUPPLEMENTAL LOG DATA")
                   .with(And({"(", ") COLUMNS"}, list("LIST", ",", "", ""))));
}

}  // namespace

CSQLAlterDatabase::CSQLAlterDatabase(bool bInit, int nOraVersion) : AlterStatement(nOraVersion) {
  setup("C_ALTER_DATABASE", bInit);
}

// Oracle allows one alteration per statement.
void CSQLAlterDatabase::init() {
  const int v = GetOraVersion();
  attach(this,
         leaf("DATABASE"),
         Or(leaf("MOUNT"),
            leaf("OPEN").with(when(v >= 2, leaf("READ", "READ ")), leaf("RESETLOGS")),
            leaf("ARCHIVELOG"),
            when(v >= 4, leaf("FORCE", "", "", " LOGGING")),
            when(v >= 4, supplemental()),
            when(v >= 5, leaf("DEFAULT", "DEFAULT TABLESPACE ")),
            when(v >= 3, leaf("TEMPORARY", "DEFAULT TEMPORARY TABLESPACE ")),
            leaf("GLOBAL_NAME", "RENAME GLOBAL_NAME TO "),
            when(v >= 3, quoted("TIME_ZONE", "SET TIME_ZONE = '")),
            when(v >= 5,
                 leaf("TRACKING", "", " BLOCK CHANGE TRACKING")
                     .with(quoted("FILE", "USING FILE '"), leaf("REUSE"))),
            when(v >= 5, leaf("FLASHBACK", "FLASHBACK ")),
            controlfile(v),
            datafile(),
            when(v >= 2, tempfile(v)),
            renameFile(),
            addLogfile(v),
            dropLogfile(v),
            addMember(v),
            dropMember(v)));
}

CSQLAlterDatabase::CSubSQLItemFile::CSubSQLItemFile(const char* name) : Cloneable(kLatestRelease) {
  setup(name, true);
}

CSQLAlterDatabase::CSubSQLItemFile::CSubSQLItemFile(bool bInit, int nOraVersion) : Cloneable(nOraVersion) {
  setup("", bInit);
}

void CSQLAlterDatabase::CSubSQLItemFile::init() {
  attach(this, quoted("FILE", "'"));
}

}  // namespace qarvelt
