' Adds a number series and shows the statement that stores its command line: cscript //nologo host.vbs
Class Host
  Public Function scGetParamValue(name)
    If name = "NUMTYP" Then scGetParamValue = "EX" Else scGetParamValue = "100&&199"
  End Function
  Public Function scNANSIinitiate(numse, numtyp, code)
    scNANSIinitiate = True
  End Function
  Public Function scRunQuery(sql, rows, database)
    Dim found
    ReDim found(2, 0)
    found(0, 0) = "100"
    found(1, 0) = "199"
    found(2, 0) = "EX"
    If Left(sql, 6) = "SELECT" Then rows = found Else WScript.Echo sql
    scRunQuery = True
  End Function
End Class

Dim script
Set script = CreateObject("Cordboard.CScript")
script.AddObject New Host
If script.Run(1, "R8", "SetInfo", "NANSI", 0, Array("CMDID", "NUMSE", "NUMTYP")) Then
  script.Run 1, "R8", "GenerateCmd", "NANSI", 0, Array(1)
End If
