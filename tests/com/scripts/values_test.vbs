' Arguments from variables, and values of every kind from and to the object of a script class.
Class Typed
  Public Form
  Public Kinds
  Public Rows

  Public Function scGetParamValue(name)
    scGetParamValue = Form
  End Function

  Public Function scNANSIinitiate(numse, numtyp, code)
    Kinds = TypeName(numse) & " " & TypeName(code)
    scNANSIinitiate = 5
  End Function

  Public Function scRunQuery(sql, found, database)
    Kinds = TypeName(sql) & " " & TypeName(found) & " " & VarType(database)
    If Not IsEmpty(Rows) Then found = Rows
    scRunQuery = True
  End Function

  Public Sub scErrorMessage(first, second, third, context, code, a, b, c, d)
    Kinds = TypeName(first) & " " & TypeName(context) & " " & TypeName(code) & " " & TypeName(a) & " " & VarType(d)
  End Sub
End Class

Dim script, host, definition, release, action, command, id, parameters, answer
Set script = CreateObject("Cordboard.CScript")
Set host = New Typed
script.AddObject host

' Variables, and numbers as texts: each is converted, and none is changed.
definition = "1"
release = "R8"
action = "SetInfo"
command = "NANSI"
id = "7"
parameters = Array("CMDID", "NUMSE", "NUMTYP")
host.Form = "100"
answer = script.Run(definition, release, action, command, id, parameters)
Check "any number but zero is True", answer, True
Check "a text arrives as a text, an out-argument empty", host.Kinds, "String Empty"
Check "not written back", definition, "1"
Check "not written back", id, "7"
Check "not written back", CInt(UBound(parameters)), 2

' Number, truth value and null as the host gives them.
host.Form = 100
Check "a number", script.Run(1, "R8", "SetInfo", "NANSI", 0, parameters), True
Check "a number stays one", host.Kinds, "Long Empty"
host.Form = True
Check "a truth value", script.Run(1, "R8", "SetInfo", "NANSI", 0, parameters), True
Check "a truth value stays one", host.Kinds, "Boolean Empty"
host.Form = 0.5
Check "a real number", script.Run(1, "R8", "SetInfo", "NANSI", 0, parameters), True
Check "a real number stays one", host.Kinds, "Double Empty"

' The row set is asked for with the statement; the database, which is not given, as an error value.
Dim rows
ReDim rows(1, 0)
rows(0, 0) = ""
rows(1, 0) = "EX"
host.Rows = rows
Check "a number series without a number", script.Run(1, "R8", "DeleteInfo", "NANSI", 7, Empty), False
Check "the message's arguments", host.Kinds, "Long String Long String 10"
Done 13
