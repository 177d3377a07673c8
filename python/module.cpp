// The native part of the Python module `qarvelt`: the model layer (table documents to scripts) and
// the statement trees. The package's __init__.py gives it its Python face (keyword options, dict
// documents, the exception classes); errors of the library reach Python as those classes.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <qarvelt/ddl/reader.h>
#include <qarvelt/model/document.h>
#include <qarvelt/model/error.h>
#include <qarvelt/model/schema.h>
#include <qarvelt/model/script.h>
#include <qarvelt/model/statements.h>
#include <qarvelt/qarvelt.h>

namespace py = pybind11;
using namespace qarvelt;

namespace {

// The options of Create and Diff from the keyword arguments the package passes on.
model::Options makeOptions(const py::dict& given) {
  model::Options options;
  const std::pair<const char*, bool model::Options::*> flags[] = {
      {"allow_recreate", &model::Options::allow_recreate},
      {"fail_on_data_loss", &model::Options::fail_on_data_loss},
      {"quote_all", &model::Options::quote_all},
      {"preserve_case", &model::Options::preserve_case},
      {"online", &model::Options::online},
      {"if_exists", &model::Options::if_exists}};
  for (const auto& [name, member] : flags) {
    if (given.contains(name)) options.*member = given[name].cast<bool>();
  }
  return options;
}

using ScriptTuple = std::pair<std::vector<std::string>, std::vector<std::string>>;

ScriptTuple toTuple(model::Script script) {
  return {std::move(script.statements), std::move(script.warnings)};
}

model::Terminator terminatorOf(const std::string& name) {
  if (name == ";") return model::Terminator::Semicolon;
  if (name == "/") return model::Terminator::Slash;
  if (name == "none" || name.empty()) return model::Terminator::None;
  throw model::Error(
      model::ErrorKind::BadInput, "terminator", "must be ';', '/' or 'none', not '" + name + "'");
}

// A statement tree with the release code it was built for.
class Statement {
 public:
  Statement(const std::string& kind, int release)
      : m_kind(kind), m_release(release), m_root(model::MakeStatement(kind, release)) {}

  void set(const std::string& path, const std::string& value) { model::SetPath(*m_root, path, value, false); }
  void setInit(const std::string& path, const std::string& value) {
    model::SetPath(*m_root, path, value, true);
  }
  void addItem(const std::string& listPath, const std::string& itemClass, const std::string& name) {
    model::AddItem(*m_root, listPath, itemClass, name, m_release);
  }
  bool isModified(const std::string& path) { return m_root->IsModified(path.c_str()); }
  // The text of one writing pass; what it writes counts as written for the next pass.
  std::string sql() {
    std::string text;
    m_root->GetModifiedSQL("*", text);
    Trim(text);
    return text;
  }
  std::vector<std::string> statements() { return model::Passes(*m_root); }
  std::vector<std::string> paths() const { return model::PathNames(model::TreePaths(*m_root)); }
  void clear() { m_root->Clear(); }
  const std::string& kind() const { return m_kind; }
  int release() const { return m_release; }

 private:
  std::string m_kind;
  int m_release;
  std::unique_ptr<CSQLClause> m_root;
};

}  // namespace

PYBIND11_MODULE(_qarvelt, m) {
  m.doc() = "The native part of qarvelt; use the qarvelt package, not this module.";

  // Library errors become the package's exception classes, which carry the place of the fault.
  py::register_exception_translator([](std::exception_ptr pending) {
    try {
      if (pending) std::rethrow_exception(pending);
    } catch (const model::Error& error) {
      py::module_ package = py::module_::import("qarvelt");
      const char* name = error.kind() == model::ErrorKind::BadInput  ? "DocumentError"
                         : error.kind() == model::ErrorKind::Refused ? "RefusedError"
                                                                     : "NotExpressibleError";
      py::object instance = package.attr(name)(error.what(), error.where(), error.message());
      PyErr_SetObject(package.attr(name).ptr(), instance.ptr());
    }
  });

  m.def(
      "create",
      [](const std::string& document, const std::string& source, const py::dict& options) {
        return toTuple(model::CreateDocument(document, source, makeOptions(options)));
      },
      py::arg("document"),
      py::arg("source"),
      py::arg("options"));
  m.def(
      "diff",
      [](const std::string& before, const std::string& after, const py::dict& options) {
        return toTuple(model::DiffDocuments(before, after, "old", "new", makeOptions(options)));
      },
      py::arg("old"),
      py::arg("new"),
      py::arg("options"));
  m.def(
      "import_ddl",
      [](const std::string& text, const std::string& source, int release, bool skipUnknown) {
        ddl::ReadOptions options;
        options.release = release;
        options.skip_unknown = skipUnknown;
        ddl::ReadReport report;
        const model::Schema schema = ddl::ReadScript(text, source, options, report);
        return py::make_tuple(model::WriteSchema(schema), report.notes, report.warnings);
      },
      py::arg("text"),
      py::arg("source"),
      py::arg("release"),
      py::arg("skip_unknown"));
  m.def(
      "script_text",
      [](const std::vector<std::string>& statements, const std::string& terminator) {
        model::Script script;
        script.statements = statements;
        return model::ScriptText(script, terminatorOf(terminator));
      },
      py::arg("statements"),
      py::arg("terminator"));
  m.def(
      "release_code",
      [](const std::string& name) { return model::ReadRelease(name, "release"); },
      py::arg("name"));
  m.def("release_names", [] { return model::ReleaseNames(); });
  m.def("kinds", [] { return model::KindNames(); });
  m.def(
      "types", [](int release) { return CSQLUtil::GetDataTypes(release); }, py::arg("release"));

  py::class_<Statement>(m, "Statement")
      .def(py::init<const std::string&, int>(), py::arg("kind"), py::arg("release"))
      .def("set", &Statement::set, py::arg("path"), py::arg("value"))
      .def("set_init", &Statement::setInit, py::arg("path"), py::arg("value"))
      .def("add_item", &Statement::addItem, py::arg("list_path"), py::arg("item_class"), py::arg("name"))
      .def("is_modified", &Statement::isModified, py::arg("path"))
      .def("sql", &Statement::sql)
      .def("statements", &Statement::statements)
      .def("paths", &Statement::paths)
      .def("clear", &Statement::clear)
      .def_property_readonly("kind", &Statement::kind)
      .def_property_readonly("release", &Statement::release);
}
