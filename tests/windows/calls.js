// JScript: everything goes by value, omitted arguments are undefined, collections are walked by an Enumerator.
function archive() {
  var connector = new ActiveXObject("Dorvane.DbConnector");
  same("open", connector.Open("sqlite::memory:"), true);
  same("schema", connector.CreateSchema(), true);
  same("insert", connector.ExecuteSql("INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)" +
    "VALUES(1,'1871-01-07','FI',15,71,18,64,81),(2,'1871-01-14','FI',5,12,33,40,41)"), true);
  return connector;
}

var lotto = new ActiveXObject("Vestara.cLotto");
lotto.ActiveConnection = archive();
same("count", lotto.ContaEstrazioniStorico(), 2);
var rows = lotto.LoadLottoEstr("5,12", 2, "FI");
same("rows", rows.RecordCount, 1);
same("chain", rows.Fields("concorsoNumero").Value, 2);
same("counter", lotto.Ambi, 1);
raises("the connector is not handed out", 91, function () { var x = lotto.ActiveConnection; });
raises("no such member", 438, function () { lotto.Nope(); });

var names = "";
for (var e = new Enumerator(rows.Fields); !e.atEnd(); e.moveNext()) names += e.item().Name + ";";
same("fields", names, "dtEstr;concorsoNumero;");

// An object of the script as connector.
var asked = "";
var inner = archive();
var connector = {
  ConnectionState: 0,
  GetMaxId: function (table, column) { return inner.GetMaxId(table, column); },
  ExecuteSql: function (sql) { asked = sql; return inner.ExecuteSql(sql); }
};
lotto.ActiveConnection = connector;
same("refused", lotto.DeleteRicerchePersonalizzate(4), true);
same("statement", asked.toUpperCase().indexOf("DELETE") >= 0, true);
