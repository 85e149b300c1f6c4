{ A container whose control is saved with the form that it is on, in the words of the control. }
unit KeptControl;

{$mode objfpc}{$H+}

interface

uses
  ActiveX, ActiveXContainer, Checks, Classes, ComObj, EventSink, SysUtils;

type
  TKeptControl = class(TActiveXContainer)
  private
    events: TEventSink;
    procedure Listen;
    procedure ReadControl(Stream: TStream);
    procedure WriteControl(Stream: TStream);
    procedure Note(Sender: TObject; DispID: Integer; const IID: TGUID; LocaleID: Integer; Flags: Word; Params: TDispParams;
      VarResult, ExcepInfo, ArgErr: Pointer);
  protected
    procedure DefineProperties(Filer: TFiler); override;
  public
    destructor Destroy; override;
    { Makes the control active and prints what it raises. All that is typed into it becomes capital letters. }
    procedure Start;
  published
    { Not saved: a control is loaded before it becomes active. }
    property Active stored False;
  end;

implementation

procedure TKeptControl.DefineProperties(Filer: TFiler);
begin
  inherited DefineProperties(Filer);
  Filer.DefineBinaryProperty('ControlState', @ReadControl, @WriteControl, True);
end;

procedure TKeptControl.ReadControl(Stream: TStream);
var
  adapter: IStream;
begin
  adapter := TStreamAdapter.Create(Stream);
  ComServer := CreateOleObject(OleClassName);
  { The control asks for the colours and the font around it while it is loaded. }
  OleCheck((ComServer as IOleObject).SetClientSite(Self as IOleClientSite));
  OleCheck((ComServer as IPersistStreamInit).Load(adapter));
end;

procedure TKeptControl.WriteControl(Stream: TStream);
var
  adapter: IStream;
begin
  adapter := TStreamAdapter.Create(Stream);
  OleCheck((ComServer as IPersistStreamInit).Save(adapter, True));
end;

procedure TKeptControl.Start;
begin
  Active := True;
  Listen;
end;

procedure TKeptControl.Listen;
var
  id: TGUID;
begin
  events := TEventSink.Create(nil);
  events.OnInvoke := @Note;
  OleCheck((ComServer as IProvideClassInfo2).GetGUID(1, id));
  events.Connect(ComServer, id);
end;

destructor TKeptControl.Destroy;
begin
  events.Free;
  inherited Destroy;
end;

procedure TKeptControl.Note(Sender: TObject; DispID: Integer; const IID: TGUID; LocaleID: Integer; Flags: Word;
  Params: TDispParams; VarResult, ExcepInfo, ArgErr: Pointer);
const
  integer_by_reference = VT_BYREF or VT_I2;
var
  line: string;
  i: Integer;
begin
  line := Format('event %s %d', [Name, DispID]);
  for i := Params.cArgs - 1 downto 0 do
    if Params.rgvarg^[i].vt = integer_by_reference then
    begin
      line := line + ' ' + IntToStr(Params.rgvarg^[i].piVal^);
      if (Params.cArgs = 1) and (Params.rgvarg^[i].piVal^ in [Ord('a')..Ord('z')]) then
        Dec(Params.rgvarg^[i].piVal^, 32);
    end;
  Say(line);
end;

end.
