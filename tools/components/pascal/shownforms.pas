{ Forms that a test clicks in. }
unit ShownForms;

{$mode objfpc}{$H+}

interface

uses
  Forms;

{ Prints "at NAME LEFT TOP WIDTH HEIGHT" for each control and "shown" when the form is there; returns when it is closed. }
procedure ShowUntilClosed(form: TForm);

implementation

uses
  Checks, Classes, Controls, SysUtils;

procedure PrintPlaces(form: TForm);
var
  i: Integer;
  control: TControl;
  corner: TPoint;
begin
  for i := 0 to form.ControlCount - 1 do
  begin
    control := form.Controls[i];
    corner := control.ClientToScreen(Point(0, 0));
    Say(Format('at %s %d %d %d %d', [control.Name, corner.X, corner.Y, control.Width, control.Height]));
  end;
end;

procedure ShowUntilClosed(form: TForm);
begin
  form.Show;
  Application.ProcessMessages;
  PrintPlaces(form);
  Say('shown');
  while form.Visible and not Application.Terminated do
  begin
    Application.ProcessMessages;
    Sleep(5);
  end;
end;

end.
