"""Oracle DDL, written offline.

qarvelt writes Oracle CREATE and ALTER statements as text without a database. Two levels:

Table documents (the JSON format of the qarvelt tool, given as a dict or as a JSON string):

    >>> import qarvelt
    >>> table = {"schema": "SCOTT", "name": "EMP",
    ...          "columns": [{"name": "EMPNO", "type": "NUMBER", "length": 4}]}
    >>> qarvelt.create(table)
    ['CREATE TABLE SCOTT.EMP (EMPNO NUMBER (4))']
    >>> wider = dict(table, columns=table["columns"] + [{"name": "ENAME", "type": "VARCHAR2", "length": 10}])
    >>> qarvelt.diff(table, wider).statements
    ['ALTER TABLE SCOTT.EMP ADD ( ENAME VARCHAR2 (10))']

Statement trees, filled by attribute path (see kinds() and Statement.paths()):

    >>> alter = qarvelt.statement("ALTER TABLE")
    >>> alter.set("SCHEMA", "SCOTT"); alter.set("TABLE", "EMP")
    >>> alter.set_init("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", "10")
    >>> alter.set("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE", "20")
    >>> alter.statements()
    ['ALTER TABLE SCOTT.EMP PCTFREE 20']

Errors raise subclasses of qarvelt.Error: DocumentError (the input cannot be used; .where names the
place), RefusedError (a value or a data-losing change refused) and NotExpressibleError (a change no
ALTER statement can make, or one the target release does not have).
"""

import json as _json
from typing import List, Sequence, Union


class Error(Exception):
    """A failure of qarvelt. str(error) is the whole text; .where is the place of the fault in the
    input ("emp.json:3:5", "old: columns[2].type", or "" when there is none) and .message the text
    without the place."""

    def __init__(self, text: str, where: str = "", message: str = ""):
        super().__init__(text)
        self.where = where
        self.message = message or text


class DocumentError(Error):
    """The input cannot be used: bad JSON, an unknown key or kind, a wrong type, a bad path."""


class RefusedError(Error):
    """A value was refused, or a change that loses data when fail_on_data_loss is set."""


class NotExpressibleError(Error):
    """A change no ALTER statement can make (the table must be created anew), or syntax the target
    release does not have."""


from . import _qarvelt  # noqa: E402  (the exception classes above must exist first)

Document = Union[dict, str]


def _text(document: Document) -> str:
    if isinstance(document, str):
        return document
    if isinstance(document, dict):
        return _json.dumps(document)
    raise TypeError("a document is a dict or a JSON string, not %s" % type(document).__name__)


def _release(release: Union[int, str]) -> int:
    if isinstance(release, bool) or not isinstance(release, (int, str)):
        raise TypeError("a release is a code 0-12 or an Oracle release name such as '19c'")
    return _qarvelt.release_code(str(release))


class Script:
    """The statements of a change script, in order, and the warnings about them."""

    def __init__(self, statements: List[str], warnings: List[str]):
        self.statements = statements
        self.warnings = warnings

    def text(self, terminator: str = ";") -> str:
        """The script as the qarvelt tool prints it, for SQL*Plus or SQLcl: each statement ended by
        ';' (a PL/SQL unit by a line holding '/'), by a '/' line, or by nothing ('none')."""
        return _qarvelt.script_text(self.statements, terminator)

    def __repr__(self) -> str:
        return "Script(statements=%r, warnings=%r)" % (self.statements, self.warnings)


def create(document: Document, *, quote_all: bool = False, preserve_case: bool = False,
           if_exists: bool = False, source: str = "document") -> List[str]:
    """The CREATE TABLE, CREATE INDEX and COMMENT statements of a table document, or the CREATE
    script of a whole schema from a schema document (in dependency order).

    quote_all writes every identifier in double quotes; preserve_case takes names exactly as written
    instead of folding them to upper case as Oracle does; if_exists writes CREATE ... IF NOT EXISTS
    (Oracle 23ai; DocumentError below it). source names the document in errors."""
    statements, _warnings = _qarvelt.create(_text(document), source,
                                            dict(quote_all=quote_all, preserve_case=preserve_case,
                                                 if_exists=if_exists))
    return statements


def diff(old: Document, new: Document, *, allow_recreate: bool = False, fail_on_data_loss: bool = False,
         quote_all: bool = False, preserve_case: bool = False, online: bool = False,
         if_exists: bool = False) -> Script:
    """The ALTER script from the table as it is (old) to the table as it should be (new), or between
    two schemas when either document is a schema document (a table document then counts as a
    schema of one table).

    allow_recreate accepts differences that need the table created anew (the script then drops and
    creates it); fail_on_data_loss refuses statements that lose data (RefusedError); online moves the
    table and rebuilds its indexes ONLINE; if_exists writes IF [NOT] EXISTS in CREATE and DROP
    statements (Oracle 23ai). Errors name the documents "old" and "new"."""
    statements, warnings = _qarvelt.diff(_text(old), _text(new),
                                         dict(allow_recreate=allow_recreate,
                                              fail_on_data_loss=fail_on_data_loss, quote_all=quote_all,
                                              preserve_case=preserve_case, online=online,
                                              if_exists=if_exists))
    return Script(statements, warnings)


class Imported:
    """What import_ddl read: the schema document, and the notes (SQL*Plus lines skipped, clauses
    left out) and warnings (statements skipped, clauses not kept), each with its "source:line:column"."""

    def __init__(self, document: dict, notes: List[str], warnings: List[str]):
        self.document = document
        self.notes = notes
        self.warnings = warnings

    def __repr__(self) -> str:
        return "Imported(document=%r, notes=%r, warnings=%r)" % (self.document, self.notes, self.warnings)


def import_ddl(text: str, *, source: str = "script.sql", release: Union[int, str] = "19c",
               skip_unknown: bool = False) -> Imported:
    """The schema document (a dict) that a DDL script describes: an export of Oracle's tools or a
    hand-written script (SQL*Plus lines are skipped with a note). A statement that cannot be read is
    a DocumentError naming its place, or, with skip_unknown, a warning. The document goes to create()
    and diff() like any other."""
    if not isinstance(text, str):
        raise TypeError("a DDL script is a str, not %s" % type(text).__name__)
    document, notes, warnings = _qarvelt.import_ddl(text, source, _release(release), skip_unknown)
    return Imported(_json.loads(document), notes, warnings)


class Statement:
    """One statement tree of the library, filled by attribute path.

    Paths name nodes from the root, joined by ';' ("C_ALT_TABLE_PROPERTY;C_PHYSICAL_ATTRIBUTES;PCTFREE").
    A leaf writes itself when its value differs from its initial value: set() alone gives CREATE
    text, set_init() and then set() give ALTER text of what changed."""

    def __init__(self, kind: str, release: Union[int, str] = 7):
        self._tree = _qarvelt.Statement(kind, _release(release))

    @property
    def kind(self) -> str:
        """The statement kind the tree was made for."""
        return self._tree.kind

    @property
    def release(self) -> int:
        """The release code (0-12) the tree was built for."""
        return self._tree.release

    def set(self, path: str, value: str) -> None:
        """Sets the value of the node at path. A bad path raises DocumentError naming the nearest
        paths; a value the leaf refuses raises RefusedError."""
        self._tree.set(path, str(value))

    def set_init(self, path: str, value: str) -> None:
        """Sets the initial value (and the value) of the node at path: what the object is now."""
        self._tree.set_init(path, str(value))

    def add_item(self, list_path: str, item_class: str, name: str) -> None:
        """Appends an item of item_class named name to the list at list_path; the item's own paths
        are then list_path;name;... ."""
        self._tree.add_item(list_path, item_class, name)

    def is_modified(self, path: str = "*") -> bool:
        """True when something at or below path differs from its initial value."""
        return self._tree.is_modified(path)

    def sql(self) -> str:
        """The text of one writing pass. What it writes counts as written: the next call gives the
        next alternative, or the same text again once every alternative was written."""
        return self._tree.sql()

    def statements(self) -> List[str]:
        """Every statement the tree gives: one per writing pass, until everything set was written."""
        return self._tree.statements()

    def paths(self) -> List[str]:
        """Every attribute path of the tree, list items included."""
        return self._tree.paths()

    def clear(self) -> None:
        """Empties every value and initial value; list items are removed."""
        self._tree.clear()

    def __repr__(self) -> str:
        return "Statement(%r, release=%d)" % (self.kind, self.release)


def statement(kind: str, release: Union[int, str] = 7) -> Statement:
    """A new statement tree of kind (as kinds() lists it: "CREATE TABLE", "ALTER INDEX", ...) for a
    release code 0-12 or an Oracle release name ("11g", "19c"). An unknown kind raises DocumentError
    naming the nearest kinds."""
    return Statement(kind, release)


def kinds() -> List[str]:
    """The statement kinds."""
    return _qarvelt.kinds()


def types(release: Union[int, str] = "19c") -> List[str]:
    """The column data types of a release (by default Oracle 19c, as for table documents)."""
    return _qarvelt.types(_release(release))


def release_names() -> List[str]:
    """The Oracle release names of the release codes 0-12, in order."""
    return _qarvelt.release_names()


__all__: Sequence[str] = [
    "Error", "DocumentError", "RefusedError", "NotExpressibleError", "Script", "Statement",
    "create", "diff", "statement", "kinds", "types", "release_names",
]
