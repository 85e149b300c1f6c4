{ Writes the Pascal unit of a type library: import_library LIBRARY FOLDER [container]
  With "container" its classes are containers of a form. }
program import_library;

{$mode objfpc}{$H+}

uses
  ActiveX, Classes, SysUtils, TypeLib;

var
  unit_name, text, package_source, registration: string;
  needed: TStringList;
  output: TStringList;
  is_container: Boolean;

begin
  OleInitialize(nil);
  needed := TStringList.Create;
  output := TStringList.Create;
  is_container := ParamStr(3) = 'container';
  try
    text := ImportTypelib(UTF8Decode(ParamStr(1)), unit_name, needed, is_container, False, True, package_source, registration);
    output.Text := text;
    output.SaveToFile(ParamStr(2) + '/' + unit_name + '.pas');
    WriteLn(unit_name);
  except
    on error: Exception do
    begin
      WriteLn(error.ClassName, ': ', error.Message);
      Halt(1);
    end;
  end;
end.
