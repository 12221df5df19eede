' What every script test begins with. An unhandled error ends a script with status 0, so each test ends with Done and
' the number of its checks.
Option Explicit

Dim checks
checks = 0

Sub Check(what, got, expected)
  checks = checks + 1
  If VarType(got) = VarType(expected) Then
    If got = expected Then Exit Sub
  End If
  WScript.Echo "FAILED: " & what & ": got " & TypeName(got) & " " & got & ", not " & TypeName(expected) & " " & expected
  WScript.Quit 1
End Sub

Sub Done(count)
  If checks = count Then WScript.Echo "all is well" Else WScript.Echo "FAILED: " & checks & " checks, not " & count
End Sub

' A host: the form with one number series, the list of valid values, the blocked ranges and the exchange lines.
Class Exchange
  Public NUMTYP
  Public NUMSE
  Public Multiple
  Public Range
  Public Calls
  Public Messages
  Public Lines
  Public Ranges
  Public Blocked
  Public ValidValues

  Private Sub Class_Initialize
    Ranges = 0
    Calls = ""
    Messages = ""
    Lines = ""
  End Sub

  Public Function scGetParamValue(name)
    If name = "NUMTYP" Then scGetParamValue = NUMTYP
    If name = "NUMSE" Then scGetParamValue = NUMSE
  End Function

  Public Function scSQLSelectValuesAndDesc()
    ValidValues = Array("EX", "DN")
    scSQLSelectValuesAndDesc = True
  End Function

  Public Function scIsValueEqual(value)
    If IsEmpty(NUMTYP) Then scIsValueEqual = Null Else scIsValueEqual = (NUMTYP = value)
  End Function

  Public Sub scSetCanHaveParamRange(name, allowed)
    Range = name & " " & allowed
  End Sub

  Public Sub scSetCanHaveParamMultiple(name, allowed)
    Multiple = name & " " & allowed
  End Sub

  ' Adds one row of three columns to the blocked ranges; only a range is taken.
  Public Function scNANSIinitiate(numse, numtyp, code)
    Dim place, rows, row, column
    place = InStr(numse, "&&")
    scNANSIinitiate = (place > 0)
    If place = 0 Then
      code = 60010
      Exit Function
    End If
    ReDim rows(2, Ranges)
    For row = 0 To Ranges - 1
      For column = 0 To 2
        rows(column, row) = Blocked(column, row)
      Next
    Next
    rows(0, Ranges) = Left(numse, place - 1)
    rows(1, Ranges) = Mid(numse, place + 2)
    rows(2, Ranges) = numtyp
    Blocked = rows
    Ranges = Ranges + 1
  End Function

  Public Function scRunQuery(sql, rows, database)
    Calls = Calls & sql & ";"
    If Left(sql, 6) = "SELECT" Then rows = Blocked
    If Left(sql, 6) = "INSERT" Then Lines = Lines & sql & vbLf
    scRunQuery = True
  End Function

  Public Sub scErrorMessage(first, second, third, context, code, a, b, c, d)
    Messages = Messages & context & " " & code & ";"
  End Sub

  Public Sub scPrintToDebugWindow(line)
  End Sub
End Class
