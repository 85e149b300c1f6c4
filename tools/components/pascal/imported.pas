{ What a Pascal program does with controls by the unit that import_library has made of their type library. }
program imported;

{$mode objfpc}{$H+}

uses
  ActiveX, Checks, Classes, ComObj, LevelWidgets_1_0_TLB, SysUtils;

type
  TListener = class
    seen: string;
    procedure TabChange(Sender: TObject; PreviousTab, NewTab: Smallint);
    procedure Change(Sender: TObject);
  end;

procedure TListener.TabChange(Sender: TObject; PreviousTab, NewTab: Smallint);
begin
  seen := Format('%s%d to %d;', [seen, PreviousTab, NewTab]);
end;

procedure TListener.Change(Sender: TObject);
begin
  seen := seen + 'change;';
end;

procedure CheckMembers;
var
  grid: FlatGrid;
  column: FlatColumn;
  found: Integer;
begin
  grid := CoFlatGrid.Create;
  column := grid.Columns.Add('Article', 1500, ksxCenter, ksxLeft, ksxEditText, True, '', '', 0);
  Check('A method takes typed arguments', 1500, column.Width);
  Check('An enumeration has its values', ksxCenter, column.HeaderAlignment);
  Check('A property of an object', 'Article', string(grid.Columns.Item[1].Caption));
  grid.RowCount := 3;
  grid.ShowColumnHeaders := False;
  grid.RowHeight := 225;
  found := 0;
  Check('A method returns a value', 2, grid.HitTest(600, 300, found));
  Check('A method fills an argument', 1, found);
end;

procedure CheckEvents;
var
  listener: TListener;
  strip: TEvsFlatTabStrip;
  scroll: TEvsFlatScroll;
begin
  listener := TListener.Create;
  strip := TEvsFlatTabStrip.Create(nil);
  strip.OnTabChange := @listener.TabChange;
  strip.ComServer.TabCount := 3;
  strip.ComServer.SelectedTab := 1;
  strip.ComServer.SelectedTab := 3;
  Check('An event has typed arguments', '0 to 1;1 to 3;', listener.seen);
  listener.seen := '';
  scroll := TEvsFlatScroll.Create(nil);
  scroll.OnChange := @listener.Change;
  scroll.ComServer.Value := 5;
  Check('An event without arguments', 'change;', listener.seen);
  scroll.Free;
  strip.Free;
  listener.Free;
end;

begin
  OleInitialize(nil);
  try
    CheckMembers;
    CheckEvents;
  except
    on error: Exception do Check('no error', '', error.ClassName + ': ' + error.Message);
  end;
  Say('end');
end.
