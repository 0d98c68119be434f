Documents: their creation, the vault, change control, and how they are found.

== DocumentCreateCheckIn
entry DocumentCreateCheckIn doc_ver_num=A
use DocumentCreateCheckIn ^Ec Number=ec-12a | ^DocumentTitle=Bracket, 2nd sheet | SystemPartnerOid=oid-7 | [db_object_id] 50
also Ec Number=
start
defaults usual
listing input: @ Printing Input Attributes .... | @\t<>.
listing default: @-     ... plus default attributes .... | @-     <>-.
listing name: @ Printing Selected Attributes .... | @   <name>-.
log @    EcNumber= <Ec Number> , DocumentTitle= <DocumentTitle>
log @    SystemPartnerOid= <SystemPartnerOid>
each default: log @     <name> = <value>
new DocVersion
2 @- Set Required Fields for cl_create_and_ckin.
2 @-   doc_revision@doc_title<DocumentTitle>. > QV_Set_Object_Attr(obj, "doc_revision@doc_title", "<DocumentTitle>") = 0
set @-   ckin_userdata3=<SystemPartnerOid>
if Ec Number: set @-   doc_revision@chg_ctrl=1
if Ec Number: set @-   doc_revision@doc_ctrl_num=<Ec Number>
unless Ec Number: set @-   doc_revision@chg_ctrl=0
set @-   doc_revision@doc_number=-
set @-   doc_revision@doc_rev_num=1-
set @-   doc_ver_num=-
set @-   doc_revision@external_doc=-
each default: set @-     <>-
subscribe @- Set  fields to be selected for cl_create_and_ckin.
2 @- Execute cl_create_and_ckin method; CLAYR_makeCall, cl_create_and_ckin. > QV_Create_and_CheckIn_Doc(obj, 0) = 0
log @ ...Document was  created
failed log @ ...Document was  not created
exit

== DocumentCheckOutCheckInAndCancelCheckOut
entry DocumentCheckOut site=A doc_type=DRW
use DocumentCheckOut DbObjectId=4711x | ^DocumentNumber=d-1b | RevisionNumber=a | [doc_type, db_object_id] 50
also DocumentCheckIn
also DocumentCancelCheckOut
start
defaults usual
listing input: @- Printing Input Attributes .... | @-    <>-.
listing name: @- Printing Selected Attributes .... | @-   <name>-.
joined @ DbObjectId=<DbObjectId>, DocumentNumber=<DocumentNumber>, RevisionNumber=<RevisionNumber>
each default: log @     <name> = <value>
new DocVersion
set @-  db_object_id=<DbObjectId>-
set @-   doc_revision@doc_number=<DocumentNumber>-
set @-   doc_revision@doc_rev_num=<RevisionNumber>-
if DocumentCheckOut:
  1 @-  *** TEST FOR QV34GA ONLY *** doc_revision@owner@pdi_system_id=-.
  > QV_Set_Object_Attr(obj, "doc_revision@owner@pdi_system_id", "") = 0
> QV_Open_Object(obj) = 0
if DocumentCheckOut: > QV_Set_Doc_CheckOut_Defaults(obj) = 0 as ""
if DocumentCheckIn: > QV_Set_Doc_CheckIn_Defaults(obj) = 0 as ""
each name: > QV_Subscribe_Object_Attr(obj, "<name>") = 0
each default: set @-     <>-
if DocumentCheckOut: > QV_CheckOut_Doc(obj) = 0
if DocumentCheckOut: log @ ...Document was  checked out
if DocumentCheckOut: failed log @ ...Document was  not checked out
if DocumentCheckIn: > QV_CheckIn_Doc(obj, 0) = 0
if DocumentCheckIn: log @ ...Document was  checked in
if DocumentCheckIn: failed log @ ...Document was  not checked in
if DocumentCancelCheckOut: > QV_Cancel_CheckOut_Doc(obj) = 0
if DocumentCancelCheckOut: log @ ...Document check-out was  canceled
if DocumentCancelCheckOut: failed log @ ...Document check-out was  not canceled

== DocumentMakeNewRevision
entry DocumentMakeNewRevision site=A
record doc_revision@doc_rev_num=A db_object_id=4711
record doc_revision@doc_rev_num=B db_object_id=4712
value doc_revision@doc_ctrl_num=ec-1
use DocumentMakeNewRevision !EcNumber=ec-1 | ^DocumentNumber=d-1b | RevisionNumber=a | NewRevDocumentTitle=Bracket 2 | SystemPartnerOid=oid-7 | [db_object_id] 50
also EcNumber=EC-1
also EcNumber=
also DocumentNumber=<49*d>
also DocumentNumber=<50*d>
start
defaults usual
listing input: @- Printing Input Attributes .... | @-    <>.
listing name: @- Printing Selected Attributes .... | @-   <name>-.
joined @ EcNumber=<EcNumber>, DocumentNumber=<DocumentNumber>, RevisionNumber=<RevisionNumber>, NewRevDocumentTitle=<NewRevDocumentTitle>
each default: log @     <name> = <value>
log @    SystemPartnerOid= <SystemPartnerOid>
result Object
now entries=-1
now output=[untouched | untouched]
fit 49 documentNumber=<DocumentNumber> &=(doc_revision@doc_number,'...')
new DocVersion
2 @-  base doc: db_object_id=-. > QV_Set_Object_Attr(obj, "db_object_id", "") = 0 as base doc: QV_Set_Object_Attr
2 @-   base doc: doc_revision@doc_number=<DocumentNumber>-. > QV_Set_Object_Attr(obj, "doc_revision@doc_number", "<DocumentNumber>") = 0 as base doc: QV_Set_Object_Attr
2 @-   base doc: doc_revision@doc_rev_num=<RevisionNumber>-. > QV_Set_Object_Attr(obj, "doc_revision@doc_rev_num", "<RevisionNumber>") = 0 as base doc: QV_Set_Object_Attr
>? QV_Subscribe_Object_Attr(obj, "doc_revision@doc_title") = 0 as base doc: QV_Subscribe_Object_Attr
>? QV_Subscribe_Object_Attr(obj, "doc_revision@chg_ctrl") = 0 as base doc: QV_Subscribe_Object_Attr
>? QV_Subscribe_Object_Attr(obj, "doc_revision@doc_ctrl_num") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Open_Object(obj) = 0 as base doc: QV_Open_Object
-! QV_Get_Object_Attr(obj, "doc_revision@doc_ctrl_num") = 0
2 @-     base doc: IniCtrlEcNumber=ec-1-.
each name: > QV_Subscribe_Object_Attr(obj, "<name>") = 0 as base doc: QV_Subscribe_Object_Attr
each default: 2 @-     <>-. > QV_Set_Object_Attr(obj, "<name>", "<value>") = 0 as base doc: QV_Set_Object_Attr
-! QV_Make_New_Revision(obj, +obj2) = 0
>! QV_Destroy_Object(obj2) = 0 as base doc: QV_MakeNewRevision_Doc
log @ ...Document New Revision was  created
- QV_Destroy_List(list) = 0
> QV_Create_List(+list, "DocVersion") = 0
select doc_revision@doc_number, doc_revision@doc_rev_num, db_object_id
where &=(doc_revision@doc_number,'<DocumentNumber>')
where &=(doc_revision@primary_config@db_object_id,db_object_id)
where &=(copy_count,0)
order doc_revision@doc_number, doc_revision@doc_rev_num_v, doc_ver_num
> QV_Open_List(list) = 0
-! QV_SizeOf_List(list, 2) = 0
now entries=2
-! QV_Read_List(list, 1, +obj3) = 0
-! QV_Get_Object_Attr(obj3, "doc_revision@doc_rev_num") = 0
-! QV_Get_Object_Attr(obj3, "db_object_id") = 0
now output=[B | 4712]
log @ ... new Revision Number= B  new DbObjectId= 4712
> QV_Create_Object(+obj4, "DocVersion") = 0 as new rev doc: QV_Create_Object
>? QV_Set_Object_Attr(obj4, "db_object_id", "4712") = 0 as new rev doc: QV_Set_Object_Attr
>? QV_Set_Object_Attr(obj4, "doc_revision@doc_title", "") = 0 as new rev doc: QV_Set_Object_Attr
>? QV_Subscribe_Object_Attr(obj4, "doc_primary_fmt@user_data3") = 0 as new rev doc: QV_Subscribe_Object_Attr
>? QV_Subscribe_Object_Attr(obj4, "doc_revision@chg_ctrl") = 0 as new rev doc: QV_Subscribe_Object_Attr
>? QV_Subscribe_Object_Attr(obj4, "doc_revision@doc_ctrl_num") = 0 as new rev doc: QV_Subscribe_Object_Attr
> QV_Open_Object(obj4) = 0 as new rev doc: QV_Open_Object
> QV_Set_Object_Attr(obj4, "doc_revision@doc_title", "<NewRevDocumentTitle>") = 0 as new rev doc: QV_Set_Object_Attr
> QV_Set_Object_Attr(obj4, "doc_primary_fmt@user_data3", "<SystemPartnerOid>") = 0 as new rev doc: QV_Set_Object_Attr
2 @-IniCtrlEcNumber=ec-1- EcNumber=<EcNumber>-.
if EcNumber=ec-1:
  2 @-   base doc: doc_revision@chg_ctrl=0. > QV_Set_Object_Attr(obj, "doc_revision@chg_ctrl", "0") = 0 as base doc: QV_Set_Object_Attr
  2 @ base doc: Execute Save method. > QV_Save_Object(obj) = 0 as base doc: QV_Save_Object
if EcNumber: 2 @-   new rev doc: doc_revision@chg_ctrl=1. > QV_Set_Object_Attr(obj4, "doc_revision@chg_ctrl", "1") = 0 as new rev doc: QV_Set_Object_Attr
unless EcNumber: 2 @-   new rev doc: doc_revision@chg_ctrl=0. > QV_Set_Object_Attr(obj4, "doc_revision@chg_ctrl", "0") = 0 as new rev doc: QV_Set_Object_Attr
2 @-   new rev doc: doc_revision@doc_ctrl_num=<EcNumber>. > QV_Set_Object_Attr(obj4, "doc_revision@doc_ctrl_num", "<EcNumber>") = 0 as new rev doc: QV_Set_Object_Attr
2 @ new rev doc: Execute Save method. > QV_Save_Object(obj4) = 0 as new rev doc: QV_Save_Object
log @ ...Document New Revision was  updated
end - QV_Destroy_Object(obj4) = 0
end - QV_Destroy_Object(obj3) = 0
2 @...revision B for document <DocumentNumber> was created.
failed 2 @...new revision for document <DocumentNumber> was not created.

== DocumentMakeNewRevisionOfAnUncontrolledDocument
value doc_revision@doc_ctrl_num=null
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
2 @-     base doc: IniCtrlEcNumber=-.
- QV_Make_New_Revision(obj1, obj2) = 0

== DocumentMakeNewRevisionWithoutARecord
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
- QV_SizeOf_List(list1, 0) = 0
2 @...new revision for document D-1 was not created.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=0 SelectedAttribute=[] output=[untouched | untouched]

== DocumentMakeNewRevisionWhoseRecordsAreNotCounted
record
answer QV_SizeOf_List -7 E1 - no size
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
- QV_SizeOf_List(list1, -1) = -7
2 @...new revision for document D-1 was not created.
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[] output=[untouched | untouched]

== DocumentMakeNewRevisionWhoseRecordIsNotRead
record
answer QV_Read_List -7 E1 - no record
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
- QV_Read_List(list1, 0, null) = -7
2 @...new revision for document D-1 was not created.
= 0 FromList=Object entries=1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[] output=[untouched | untouched]

== DocumentMakeNewRevisionWhoseRecordIsHandedOverAllTheSame
record db_object_id=4712
hands QV_Read_List
answer QV_Read_List -7 E1 - not told
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
- QV_Read_List(list1, 0, obj3) = -7
- QV_Get_Object_Attr(obj3, "doc_revision@doc_rev_num") = 0
- QV_Get_Object_Attr(obj3, "db_object_id") = 0
log @ ... new Revision Number=   new DbObjectId= 4712
> QV_Create_Object(obj4, "DocVersion") = 0 as new rev doc: QV_Create_Object

== DocumentMakeNewRevisionWhoseRecordHasNoValues
record doc_revision@doc_rev_num=B
answer QV_Get_Object_Attr -7 E1 - not told
use DocumentMakeNewRevision 1=EC-1 | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
2 @-IniCtrlEcNumber=- EcNumber=EC-1-.
2 @-   new rev doc: doc_revision@chg_ctrl=1. > QV_Set_Object_Attr(obj4, "doc_revision@chg_ctrl", "1") = 0 as new rev doc: QV_Set_Object_Attr
2 @-   new rev doc: doc_revision@doc_ctrl_num=EC-1. > QV_Set_Object_Attr(obj4, "doc_revision@doc_ctrl_num", "EC-1") = 0 as new rev doc: QV_Set_Object_Attr
2 @ new rev doc: Execute Save method. > QV_Save_Object(obj4) = 0 as new rev doc: QV_Save_Object
log @ ...Document New Revision was  updated
- QV_Destroy_Object(obj4) = 0
- QV_Destroy_Object(obj3) = 0
2 @...revision  for document D-1 was created.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[] output=[ | ]

== DocumentMakeNewRevisionGivesBackARevisionThatIsRefused
hands QV_Make_New_Revision
answer QV_Make_New_Revision -7 E1 - checked out by jdoe
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
- QV_Make_New_Revision(obj1, obj2) = -7
- QV_Destroy_Object(obj2) = 0
5 @ base doc: QV_MakeNewRevision_Doc  : QV_RC=-7.
log @- rc(base doc: QV_MakeNewRevision_Doc) = -7
! E1 - checked out by jdoe
2 @...new revision for document D-1 was not created.
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[] output=[untouched | untouched]

== DocumentMakeNewRevisionGivesBackAnObjectThatIsNotCreated
record db_object_id=4712
hands QV_Create_Object
answer 29 -7 E1 - refused
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
> QV_Create_Object(obj4, "DocVersion") = -7 as new rev doc: QV_Create_Object
! E1 - refused
- QV_Destroy_Object(obj4) = 0
- QV_Destroy_Object(obj3) = 0
2 @...new revision for document D-1 was not created.

== DocumentMakeNewRevisionNamesOfTheLargestSizeComeBackWhole
record doc_revision@doc_rev_num=<4000*n> db_object_id=<4000*i>
use DocumentMakeNewRevision 1= | 2=D-1 | 3=a | 4=T | 5=o | [] 50
part
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[] output=[<4000*n> | <4000*i>]

== DocumentMakeECControlled
entry DocumentMakeECControlled site=A
use DocumentMakeECControlled ^EcNumber=ec-12a | ^DocumentNumber=d-1b | RevisionNumber=a | DocumentTitle=Bracket | [db_object_id] 50
also EcNumber=
start
defaults
listing input: @- Printing Input Attributes .... | @-    <>.
listing name: @- Printing Selected Attributes .... | @-   <name>-.
joined @ EcNumber=<EcNumber>, DocumentNumber=<DocumentNumber>, RevisionNumber=<RevisionNumber>, DocumentTitle=<DocumentTitle>
usual
each default: log @     <name> = <value>
new DocVersion
set @-  db_object_id=-
set @-  doc_revision@doc_number=<DocumentNumber>-
set @-  doc_revision@doc_rev_num=<RevisionNumber>-
>? QV_Subscribe_Object_Attr(obj, "doc_revision@doc_title") = 0 as base doc: QV_Subscribe_Object_Attr
>? QV_Subscribe_Object_Attr(obj, "doc_revision@chg_ctrl") = 0
>? QV_Subscribe_Object_Attr(obj, "doc_revision@doc_ctrl_num") = 0
> QV_Open_Object(obj) = 0
set @-   doc_revision@chg_ctrl=1
set @-   doc_revision@doc_ctrl_num=<EcNumber>
each name: > QV_Subscribe_Object_Attr(obj, "<name>") = 0
2 @- Execute Save method. > QV_Save_Object(obj) = 0
log @  ... document is now EC controlled 
failed log @ ... could not make document EC controlled
end 2 @-----exit---rc=#-.

== DocumentOpen
after DocumentOpen 1=1 | 2=2 | {} 50
use DocumentOpen ^DocumentNumber=d-1b | RevisionNumber=a | {db_object_id} 50
start
listing input: @- Printing Input Attributes .... | @-    <>.
listing name: @- Printing Selected Attributes .... | @-   <name>-.
joined @ DocumentNumber=<DocumentNumber>, RevisionNumber=<RevisionNumber>
new DocVersion
set @-  db_object_id=-
set @-   doc_revision@doc_number=<DocumentNumber>-
set @-   doc_revision@doc_rev_num=<RevisionNumber>-
each name: > QV_Subscribe_Object_Attr(obj, "<name>") = 0
> QV_Open_Object(obj) = 0
log @ ...Document was  found
failed log @ ...Document was  not found

== DocumentGetLastRevision
record
record
after EngineeringChangeOpen 1=1 | 2=2 | [kept] 50
use DocumentGetLastRevision DocNumber=d-1b
also DocNumber=<49*d>
also DocNumber=<50*d>
start
each input: 2 @\t<>.
result List
now SelectedAttribute=[]
query DocVersion
select doc_revision@doc_number, doc_revision@doc_rev_num
where 49 documentNumber=<DocNumber> &=(doc_revision@doc_number,'...')
where &=(doc_revision@primary_config@db_object_id,db_object_id)
where &=(copy_count,0)
order doc_revision@doc_number, doc_revision@doc_rev_num_v, doc_ver_num
> QV_Open_List(list) = 0
count 2
exit

== DocumentGetLastRevisionOfNoneLeavesTheCurrentResult
after EngineeringChangeOpen 1=1 | 2=2 | [kept] 50
use DocumentGetLastRevision !DocNumber=
start
2 @\tDocNumber=.
0 @****** ERROR ******  Document Number is not valuated....
2 @-----Exit------Nb of entries=0------------.
now result=0
now entries=0
now QV_RC=-1
