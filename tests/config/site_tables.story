Defaults and translation tables.

== DefaultRead
entry ItemCreate item_type=P unit=EA
file My_QVL_RZM_DEFAULT ItemCreate unit KG
use DefaultRead !Operation=ItemCreate
part
2 @-----Start------------------------------.
2 @- Reading defaults from ./QVL_RZM_DEFAULT.
3 log @ - Reading defaults from  ./QVL_RZM_DEFAULT
2 @- Reading defaults from ./My_QVL_RZM_DEFAULT.
3 log @ - Reading defaults from  ./My_QVL_RZM_DEFAULT
5 @- item_type=P.
3 log @ -  item_type <=> P
5 @- unit=KG.
3 log @ -  unit <=> KG
2 @-----Exit----NbOfDefault=2--------.
= 2 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[] output=[item_type, unit | P, KG]

== XlatRead
entry XlatRead unit=UNIT_TAB colour=COLOUR_TAB colour=OTHER_TAB
translation COLOUR_TAB 1=red
use XlatRead !What=colour
part
2 @-----Start---- What=colour.
defaults
5 @- unit=UNIT_TAB.
5 @- colour=COLOUR_TAB.
5 @- colour=OTHER_TAB.
5 @-     XlatName=COLOUR_TAB.
log @ colour COLOUR_TAB
> QV_SizeOf_Xlat("COLOUR_TAB", 1) = 0
5 @- XlatSize=1-. > QV_Read_Xlat("COLOUR_TAB", 0) = 0 as QV_ReadXlat
9 @- 0-1<=>red<.
5 @- 1=red.
log @ 1 <=> red
2 @-----Exit------------XlatSize=1--------------------.
= 1 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[] output=[1 | red]

== XlatReadOfANameWithoutATableIsNoError
file QVL_RZM_DEFAULT XlatRead Colour COLOUR_TAB
answer QV_Open_Object -7 E1 - refused
after EngineeringChangeOpen 1=1 | 2=2 | [] 50
use XlatRead What=colour
2 @-----Start---- What=<What>.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=1.
5 @- Colour=COLOUR_TAB.
0 @-     What=<What>.
0 @-     XlatName=UNDEFINED.
log @ <What> UNDEFINED
2 @-----Exit------------XlatSize=0--------------------.
now QV_RC=0
now result=0
now output=[ | ]

== XlatRead2
file QVL_RZM_DEFAULT XlatRead2 COLOUR_TAB no
translation COLOUR_TAB 1=red
translation COLOUR_TAB 2=
translation COLOUR_TAB 3=blue
answer QV_Open_Object -7 E1 - refused
after EngineeringChangeOpen 1=1 | 2=2 | [] 50
use XlatRead2 XlatName=colour
also XlatName=COLOUR_TAB
2 @-----Start---- XlatName=<XlatName>.
log @ <XlatName>
now result=0
now output=[ | ]
unless XlatName=COLOUR_TAB: > QV_SizeOf_Xlat("<XlatName>", +0) = 0
if XlatName=COLOUR_TAB: > QV_SizeOf_Xlat("COLOUR_TAB", +3) = 0
if XlatName=COLOUR_TAB: now result=3
end 5 @- XlatSize=#-.
if XlatName=COLOUR_TAB:
  >! QV_Read_Xlat("COLOUR_TAB", 0) = 0 as QV_ReadXlat
  9 @- 0-1<=>red<. >! QV_Read_Xlat("COLOUR_TAB", 1) = 0 as QV_ReadXlat
  9 @- 1-2<=><. >! QV_Read_Xlat("COLOUR_TAB", 2) = 0 as QV_ReadXlat
  9 @- 2-3<=>blue<.
  5 @- 1=red.
  log @ 1 <=> red
  5 @- 2=.
  log @ 2 <=> 
  5 @- 3=blue.
  log @ 3 <=> blue
  now output=[1, 2, 3 | red, , blue]
end 2 @-----Exit------------XlatSize=#--------------------.

== XlatRead2OfEntriesThatCannotBeRead
translation COLOUR_TAB 1=red
translation COLOUR_TAB 2=green
translation COLOUR_TAB 3=blue
answer 2 -7 E1 - Unreadable
answer 4 -7 E2 - Gone
use XlatRead2 XlatName=COLOUR_TAB
part
5 @- XlatSize=3-. > QV_Read_Xlat("COLOUR_TAB", 0) = -7 as QV_ReadXlat
! E1 - Unreadable
9 @- 0-<=><. > QV_Read_Xlat("COLOUR_TAB", 1) = 0 as QV_ReadXlat
9 @- 1-2<=>green<. > QV_Read_Xlat("COLOUR_TAB", 2) = -7 as QV_ReadXlat
! E2 - Gone
9 @- 2-<=><.
5 @- =.
log @  <=> 
5 @- 2=green.
log @ 2 <=> green
5 @- =.
log @  <=> 
2 @-----Exit------------XlatSize=3--------------------.
= 3 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[] output=[, 2,  | , green, ]
