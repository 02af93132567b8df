// The collections as a script meets them that walks by an Enumerator and makes statements of members: collections.js
// Prints what is not as it should be, and last how many things were looked at.
var looked = 0;
var wrong = 0;

function Same(what, seen, wanted) {
  ++looked;
  if (seen === wanted)
    return;
  ++wrong;
  WScript.Echo(what + ": " + seen + ", not " + wanted);
}

// The number of the error that a statement raises, as scripts count them; 0 for none.
function Raised(statement) {
  try {
    statement();
    return 0;
  } catch (error) {
    return error.number & 0xFFFF;
  }
}

function Walked(collection, field) {
  var walked = "";
  for (var members = new Enumerator(collection); !members.atEnd(); members.moveNext())
    walked += members.item()[field] + ";";
  return walked;
}

var kinds = {"Fiscalon.PC4s": "TheDate", "Fiscalon.clsPC4GovFormats": "PeriodStartDate",
             "Fiscalon.clsPC4FreeFormats": "FieldNum"};
for (var name in kinds) {
  var collection = new ActiveXObject(name);
  Same(name + " walked empty", Walked(collection, kinds[name]), "");
  collection.Add("first");
  collection.Add("second");
  Same(name + " walked", Walked(collection, kinds[name]), "first;second;");
  Same(name + " Item as a statement", Raised(function () { collection.Item(1); }), 0);
  Same(name + " an unknown position as a statement", Raised(function () { collection.Item(3); }), 9);
  Same(name + " a default member as a statement", Raised(function () { collection(2); }), 0);
  Same(name + " Count as a statement", Raised(function () { collection.Count; }), 0);
  Same(name + " Item", collection.Item(2)[kinds[name]], "second");
  collection.Remove(1);
  Same(name + " walked after Remove", Walked(collection, kinds[name]), "second;");
  collection.Clear();
  Same(name + " Count", collection.Count, 0);
}

WScript.Echo(looked + " looked at, " + wrong + " wrong");
