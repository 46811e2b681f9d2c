"""describe, call, register, unregister and classes, end to end. VESTARA_PROGRAM is the command line, CLASS_USER a host
that has linked nothing but the component model, whose library is AUTOMATION_LIBRARY."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import unittest

from command_line_test import DATABASE, FILE, OK, USAGE, CommandLine

RAISED = 1
THREE_DRAWS = """date,wheel,n1,n2,n3,n4,n5
1871-01-07,FI,15,71,18,64,81
2005-05-04,RN,15,71,1,2,3
2005-05-04,VE,71,4,5,6,7
"""


class LateBound(CommandLine):
    def setUp(self):
        super().setUp()
        for name in ("VESTARA_LIBRARY_DIR", "AUTOMATION_CLASS_PATH"):
            self.environment.pop(name, None)
        self.environment |= {"XDG_DATA_HOME": str(self.folder / "data"), "XDG_DATA_DIRS": str(self.folder / "shared")}

    def import_three_draws(self):
        self.expect(OK, "import", "-", stdin=THREE_DRAWS.encode())

    def call(self, *arguments, code=OK):
        """The answer of a call; its warnings are in self.errors."""
        done = self.run_program("call", *arguments)
        self.errors = done.stderr.decode()
        self.assertEqual(done.returncode, code, self.errors)
        lines = done.stdout.decode().splitlines()
        self.assertEqual(len(lines), 1, lines)
        return json.loads(lines[0])


class Describe(LateBound):
    def test_one_class_by_any_of_its_names(self):
        text = self.expect(OK, "describe", "Vestara.cLotto")
        for name in ("cLotto", "CLOTTO", "vestara.clotto", "Vestara.cLotto.1"):
            self.assertEqual(self.expect(OK, "describe", name), text)
        self.assertTrue(text.startswith("class       Vestara.cLotto  ' "))
        self.assertIn("\n1   put     DbType(value As Integer)  ' ", text)
        self.assertIn("\nevents      __cLotto\n1   event   LoadingStart()", text)

    def test_text_and_json_say_the_same(self):
        text = self.expect(OK, "describe", "--all")
        surface = self.expect(OK, "describe", "--all", "--json")
        self.assertEqual(self.expect(OK, "describe", "--all", "--format", "json"), surface)
        classes = json.loads(surface)
        self.assertEqual(len(surface.splitlines()), len(classes) + 2)
        identifiers = [f"{one['library']}.{one['class']}" for one in classes]
        self.assertEqual(identifiers, sorted(identifiers, key=str.lower))
        self.assertLessEqual({"Vestara.cLotto", "Dorvane.DbConnector", "Dorvane.Recordset", "Dorvane.Fields",
                              "Dorvane.Field"}, set(identifiers))
        self.assertEqual(re.findall(r"^class +([\w.]+)", text, re.MULTILINE), identifiers)
        members = [(str(row["id"]), row["kind"], row["name"]) for one in classes for row in one["members"]]
        self.assertEqual(re.findall(r"^(\d+) +(get|put|putref|method) +(\w+)", text, re.MULTILINE), members)
        events = [row["name"] for one in classes for row in one["events"]]
        self.assertEqual(re.findall(r"^\d+ +event +(\w+)", text, re.MULTILINE), events)

    def test_the_list_of_classes(self):
        listed = json.loads(self.expect(OK, "describe", "--json"))["classes"]
        self.assertLessEqual({"Vestara.cLotto", "Dorvane.DbConnector"}, {row["class"] for row in listed})
        self.assertTrue(all(row["help"] for row in listed))
        self.assertNotIn("Recordset", self.expect(OK, "describe"))

    def test_wrong_classes(self):
        self.expect(USAGE, "describe", "cLoto")
        self.assertIn("near are cLotto", self.errors)
        self.expect(USAGE, "describe", "Vestara.cNothing")
        self.assertIn("\n  Component can't create object: 'Vestara.cNothing'", self.errors)
        self.expect(USAGE, "describe", "cLotto", "--all")


class Call(LateBound):
    def test_results(self):
        self.import_three_draws()
        day = '{"id":1,"dtEstr":"1871-01-07","ruota":"FI","estr1":15,"estr2":71,"estr3":18,"estr4":64,"estr5":81}'
        columns = "id,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5"
        rows = f"GetRecordset('SELECT {columns} FROM storico WHERE id=1')"
        for arguments, result in (
                (["Vestara.cLotto", "GetMaxDateStorico"], "04/05/2005"),
                (["clotto", "getmindatestorico"], "07/01/1871"),
                (["cLotto", "DbType"], 2),
                (["cLotto", "DbType", "--get"], 2),
                (["cLotto", "DbType", "-1", "--put"], None),
                (["cLotto", "StatisticsIsActive"], False),
                (["cLotto", "ContaEstrazioniStorico"], 2),
                (["cLotto", "ContaEstrazioniStorico", "1900-01-01"], 1),
                (["cLotto", "ContaEstrazioniStorico", "null", "1/1/1900"], 1),
                (["cLotto", "ContaEstrazioniStorico", "missing", "missing", "10"], 1),
                (["cLotto", "ContaEstrazioniStorico", "ruota=3"], 1),
                (["cLotto", "ContaEstrazioniStorico", "--", "missing", "missing", "-1"], -1),
                (["DbConnector", "ConnectionState"], 1),
                (["DbConnector", "Name", "--on", "GetRecordset('SELECT 1 AS n').Fields.Item(0)"], "n"),
                (["DbConnector", "Item", "n", "--on", "GetRecordset('SELECT 1 AS n').Fields"],
                 {"object": "Dorvane.Field"}),
                (["DbConnector", "GetRows", "--on", "GetRecordset('SELECT 1 AS a,NULL AS b UNION SELECT 2,3')"],
                 [[1, 2], [None, 3]]),
                (["DbConnector", "GetRecordset", f"SELECT {columns} FROM storico", "--limit", "1"], [json.loads(day)]),
                (["DbConnector", "Value", "--on", f"{rows}.Fields(dtEstr)"], "1871-01-07")):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.call(*arguments), {"result": result})
                self.assertEqual(self.errors, "")

    def test_what_comes_back(self):
        self.import_three_draws()
        dates = [{"concorsoNumero": 1, "dtEstr": "2005-05-04"}, {"concorsoNumero": 1, "dtEstr": "1871-01-07"}]
        for arguments in ([], [""], ["", "bTutteLeEstrazioni=false"], ["", 0, "", "null", "null", "missing"],
                          ["", 0, "", "null", "null", "false"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.call("cLotto", "LoadLottoEstr", *arguments),
                                 {"result": dates, "written_back": {"bTutteLeEstrazioni": True}})
        self.assertEqual(self.call("cLotto", "LoadLottoEstr", "bTutteLeEstrazioni=true"), {"result": dates})
        self.assertNotIn("written_back", self.call("cLotto", "LoadLottoEstr", "71"))
        self.assertEqual(self.call("DbConnector", "OpenRecordset", "empty", "SELECT 1 AS n"),
                         {"result": True, "written_back": {"rs": [{"n": 1}]}})

    def test_named_arguments(self):
        self.import_three_draws()
        named = self.call("cLotto", "LoadLottoEstr", "71", "bSortASC=true", "SRUOTE=VE,FI")
        self.assertEqual([list(row.values()) for row in named["result"]], [["1871-01-07", 1], ["2005-05-04", 1]])
        self.assertEqual(self.call("cLotto", "LoadLottoEstr", "71", 0, "VE,FI", "null", "null", "false", "false", "true"),
                         named)
        # No parameter is called so: a text, which is no wheel.
        self.assertEqual(self.call("cLotto", "ContaEstrazioniStorico", "when=x"), {"result": 0})
        self.expect(USAGE, "call", "cLotto", "ContaEstrazioniStorico", "Ruota=3", "5")

    def test_properties(self):
        self.import_three_draws()
        answer = self.call("cLotto", "LoadLottoEstr", "15,71", "--limit", 1, "--set", "StatisticsIsActive=false", "--set",
                           "FileUpdate=a=b", "--read", "Ambi", "--read", "FileUpdate", "--read", "ambate")
        self.assertEqual(answer["properties"], {"Ambi": 2, "FileUpdate": "a=b", "ambate": 5})
        answer = self.call("cLotto", "DbType", 7, "--put", "--set", "DbType=3", "--read", "DbType")
        self.assertEqual(answer, {"result": None, "properties": {"DbType": 7}})

    def test_errors_are_json_on_standard_output(self):
        self.import_three_draws()
        texts = {6: "Overflow", 13: "Type mismatch", 91: "Object variable or With block variable not set",
                 438: "Object doesn't support this property or method", 448: "Named argument not found",
                 449: "Argument not optional", 450: "Wrong number of arguments or invalid property assignment",
                 3265: "Item not found in this collection"}
        for number, *arguments in (
                (6, "cLotto", "DbType", 70000, "--put"),
                (6, "cLotto", "DbType", "--set", "DbType=70000"),
                (13, "cLotto", "ContaEstrazioniStorico", "Ruota=x"),
                (13, "cLotto", "Statistiche", 5, "--putref"),
                (91, "cLotto", "ActiveConnection", "--get"),
                (91, "cLotto", "Count", "--on", "Statistiche"),
                (438, "DbConnector", "Count", "--on", "GetRecordset('SELECT 1').Columns"),
                (448, "cLotto", "ContaEstrazioniStorico", "wheel:=3"),
                (449, "DbConnector", "GetRecordset"),
                (449, "cLotto", "DbType", "--put"),
                (450, "cLotto", "ContaEstrazioniStorico", 1, 2, 3, 4),
                (450, "cLotto", "Ambate", 5, "--put"),
                (450, "cLotto", "ContaEstrazioniStorico", 1, "dtDa=2"),
                (3265, "DbConnector", "Name", "--on", "GetRecordset('SELECT 1 AS n').Fields.Item(m)")):
            with self.subTest(arguments=arguments):
                error = self.call(*arguments, code=RAISED)
                source = "Vestara.cLotto" if arguments[0] == "cLotto" else "Dorvane.DbConnector"
                self.assertEqual(error, {"error": {"number": number, "description": texts[number], "source": source}})
                self.assertEqual(self.errors, "")

    def test_wrong_command_lines(self):
        for why, *arguments in (
                ("near are Vestara.cLotto; vestara classes lists all", "Vestara.cLoto", "DbType"),
                ("vestara classes lists all", "Nothing.cAtAll", "DbType"),
                ("near are GetMaxDateStorico; vestara describe Vestara.cLotto lists all", "cLotto", "GetMaxDate"),
                ("vestara describe Vestara.cLotto lists all", "cLotto", "nonsense"),
                ("member \"Ambo\" is unknown", "cLotto", "LoadLottoEstr", "--read", "Ambo"),
                ("member \"Size\" is unknown", "cLotto", "DbType", "--set", "Size=1"),
                ("member \"Nam\" is unknown to Dorvane.Field", "DbConnector", "Nam", "--on",
                 "GetRecordset('SELECT 1').Fields(0)"),
                ("write NAME=VALUE", "cLotto", "DbType", "--set", "DbType"),
                ("write it as Fields.Item(0)", "DbConnector", "Count", "--on", "Fields("),
                ("only handed out", "Recordset", "EOF"),
                ("exclude each other", "cLotto", "DbType", "--get", "--put"),
                ("MEMBER is required", "cLotto"), ("option \"-x\" is unknown", "cLotto", "DbType", "-x"),
                ("--limit \"x\"", "cLotto", "DbType", "--limit", "x")):
            with self.subTest(arguments=arguments):
                self.import_three_draws()
                self.expect(USAGE, "call", *arguments)
                self.assertIn(why, self.errors)

    def test_archives_that_are_not_there(self):
        self.assertEqual(self.call("cLotto", "DbType"), {"result": 2})
        self.assertIn(f"warning: the archive {self.archive} is missing", self.errors)
        self.assertFalse(self.archive.exists())
        self.expect(DATABASE, "call", "cLotto", "DbType", "--db", f"sqlite:{self.folder}/missing.sqlite")
        self.expect(DATABASE, "call", "cLotto", "DbType", "--db", "nonsense")

    def test_a_refused_statement_is_a_failure_of_the_database(self):
        self.import_three_draws()
        self.assertEqual(self.call("DbConnector", "ExecuteSql", "nonsense", code=DATABASE), {"result": False})
        self.assertIn("the database refused a statement: not authorized", self.errors)
        self.assertEqual(self.call("cLotto", "LoadLottoEstr", "1)", code=DATABASE)["result"], None)

    def test_an_import_by_hand(self):
        self.import_three_draws()
        update = self.folder / "update.txt"
        self.expect(OK, "export", "--as", "update", "--output", update)
        self.assertEqual(self.call("cLotto", "UpdateTblStorico", "--set", "DbType=1", "--set", f"FileUpdate={update}"),
                         {"result": True})
        self.assertEqual(self.expect(OK, "export"), THREE_DRAWS)


class Registration(LateBound):
    def moved_class_user(self):
        """The host and the component model in a folder of their own, where no library stands beside them."""
        for name, place in (("CLASS_USER", "bin"), ("AUTOMATION_LIBRARY", "lib")):
            (self.folder / place).mkdir()
            shutil.copy(os.environ[name], self.folder / place)
        return self.folder / "bin" / pathlib.Path(os.environ["CLASS_USER"]).name

    def create(self, host, identifier):
        done = subprocess.run([host, identifier], env=self.environment, capture_output=True, check=False)
        return done.stdout.decode().splitlines(), done.stderr.decode()

    def test_another_process_finds_what_was_registered(self):
        host = self.moved_class_user()
        self.assertEqual(self.create(host, "Vestara.cLotto")[0][0], "error 429")
        registered = json.loads(self.expect(OK, "register", "--format", "json"))
        self.assertEqual(registered["result"], "registered")
        self.assertEqual(registered["folder"], str(self.folder / "data" / "automation-classes"))
        libraries = {row["class"]: row["library"] for row in registered["classes"]}
        self.assertEqual(len(registered["classes"]), len(libraries))
        self.assertLessEqual({"Vestara.cLotto", "Dorvane.DbConnector"}, set(libraries))
        self.assertEqual(len(list(pathlib.Path(registered["folder"]).iterdir())), len(libraries))
        for identifier in ("Vestara.cLotto", "Vestara.cLotto.1", "dorvane.DBCONNECTOR"):
            (name, library), errors = self.create(host, identifier)
            self.assertEqual(name, identifier.split(".")[1] if "cLotto" in identifier else "DbConnector", errors)
            self.assertIn(os.path.realpath(library), libraries.values())
        unregistered = json.loads(self.expect(OK, "unregister", "--format", "json"))
        self.assertEqual(unregistered["classes"], registered["classes"])
        self.assertEqual(list(pathlib.Path(registered["folder"]).iterdir()), [])
        self.assertEqual(self.create(host, "Vestara.cLotto")[0][0], "error 429")
        self.expect(OK, "unregister")

    def test_classes_say_how_they_are_found(self):
        def found():
            rows = json.loads(self.expect(OK, "classes", "--format", "json"))["classes"]
            self.assertTrue(all(pathlib.Path(row["library"]).is_file() for row in rows if "loaded" in row["found"]))
            return {row["class"]: row["found"] for row in rows}
        self.assertEqual(found()["Vestara.cLotto"], "loaded, beside the component model")
        self.assertEqual(found()["Dorvane.DbConnector"], "loaded, beside the component model")
        self.expect(OK, "register")
        self.assertEqual(found()["Vestara.cLotto"], "loaded, registered (user), beside the component model")
        folder = self.folder / "data" / "automation-classes"
        (folder / "other.cthing.class").write_text("identifier=Other.cThing\nlibrary=/nowhere/libother.so.1\n")
        (folder / "broken.class").write_text("")
        (folder / "vestara.clotto.class").write_text("identifier=Vestara.cLotto\nlibrary=/nowhere/libvestara.so.1\n")
        self.assertEqual(found()["Other.cThing"], "registered (user)")
        self.assertEqual(found()["Vestara.cLotto"],
                         "loaded, registered (user) as /nowhere/libvestara.so.1, beside the component model")

    def test_a_folder_that_cannot_be_made(self):
        self.environment["XDG_DATA_HOME"] = str(self.write("file", "x"))
        self.expect(FILE, "register")
        self.assertIn("XDG_DATA_HOME names another folder", self.errors)
        self.expect(USAGE, "register", "something")


if __name__ == "__main__":
    unittest.main(verbosity=2)
