The current result, its values, and multi-saves.

== DestroyListOrReport
use DestroyListOrReport
2 @-----Start-------.
2 @-----Exit--------.
after BomExplode item_number=br-1 | [level] 50
after EngineeringChangeOpen 1=1 | 2=2 | [id, desc] 50
use DestroyListOrReport
now result=1
2 @-----Start-------. > QV_Destroy_Report(report) = 0
> QV_Destroy_List(list) = 0
end 2 @-----Exit--------.

== GetValueAndGetAttributeValueOfAnObject
record id=EC-0
value id=EC-1
value desc=Stronger bracket
after AffectedItemQuery 1=1 | [id] 50
after EngineeringChangeOpen 1=7 | 2=EC-1 | [id, desc] 50
use GetValue RecNo=0 | Name=id
9 @- LastRecNo=-1- RecNo=0- Name=id- out of 1 entries.
9 @-name=id-.
- QV_Get_Object_Attr(obj, "id") = 0
log            -----------------
log             id = EC-1
9 @- Value=EC-1-.
now LastRecNo=0
now output=[EC-1]
use GetValue RecNo=0 | Name=other
9 @- LastRecNo=0- RecNo=0- Name=other- out of 1 entries.
9 @-name=other-.
- QV_Get_Object_Attr(obj, "other") = 0
log             other = 
9 @- Value=-.
now output=[]
use GetAttributeValue RecNo=0 | AttNo=1
9 @- LastRecNo=0- RecNo=0- AttNo=1-.
- QV_Get_Object_Attr(obj, "desc") = 0
log             desc = Stronger bracket
9 @- Name=desc- Value=Stronger bracket-.
now output=[desc | Stronger bracket | 1]
use GetAttributeValue !RecNo=0 | !AttNo=0
9 @- LastRecNo=0- RecNo=0- AttNo=0-.
-! QV_Get_Object_Attr(obj, "id") = 0
log            -----------------
log             id = EC-1
9 @- Name=id- Value=EC-1-.
now output=[id | EC-1 | 0]

== GetAttributeValueAndGetValueOfAList
record id=EC-0 desc=zero
record id=EC-1
record id=EC-2 desc=two
after EngineeringChangeOpen 1=7 | 2=EC-1 | [id, desc] 50
after AffectedItemQuery 1=1 | [id, desc] 50
use GetAttributeValue RecNo=2 | AttNo=0
9 @- LastRecNo=-1- RecNo=2- AttNo=0-. > QV_Destroy_Object(obj) = 0
> QV_Read_List(list, 2, +obj) = 0
- QV_Get_Object_Attr(obj, "id") = 0
log            -----------------
log             id = EC-2
9 @- Name=id- Value=EC-2-.
now LastRecNo=2
now output=[id | EC-2 | 0]
use GetValue RecNo=2 | Name=desc
9 @- LastRecNo=2- RecNo=2- Name=desc- out of 3 entries.
9 @-name=desc-.
- QV_Get_Object_Attr(obj, "desc") = 0
log             desc = two
9 @- Value=two-.
now output=[two]
use GetAttributeValue RecNo=2 | AttNo=1
9 @- LastRecNo=2- RecNo=2- AttNo=1-.
- QV_Get_Object_Attr(obj, "desc") = 0
log             desc = two
9 @- Name=desc- Value=two-.
now output=[desc | two | 1]
use GetValue !RecNo=0 | !Name=id
9 @- LastRecNo=2- RecNo=0- Name=id- out of 3 entries.
9 @-name=id-. >? QV_Destroy_Object(obj) = 0
now output=[]
> QV_Read_List(list, 0, +obj) = 0
failed 0 @- ****** ERROR ****** Invalid QV_ObjPtr handle ******.
failed log @ ****** ERROR ****** Invalid QV_ObjPtr handle ******
-! QV_Get_Object_Attr(obj, "id") = 0
log            -----------------
log             id = EC-0
9 @- Value=EC-0-.
now LastRecNo=0
now output=[EC-0]

== GetAttributeValueOfARecordThatCannotBeFetched
record
answer QV_Read_List -7 E1 - Lost
after AffectedItemQuery 1=1 | [id, desc] 50
use GetAttributeValue RecNo=0 | AttNo=1
part
> QV_Read_List(list1, 0, null) = -7
! E1 - Lost
0 @- ****** ERROR ****** Invalid QV_ObjPtr handle ******.
log @ ****** ERROR ****** Invalid QV_ObjPtr handle ******
= 0 FromList=List entries=1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[id, desc] output=[ |  | 0]

== GetValueWhoseRecordIsHandedOverAllTheSame
record id=EC-0
hands QV_Read_List
answer QV_Read_List -7 E1 - Stale
after AffectedItemQuery 1=1 | [id, desc] 50
use GetValue RecNo=0 | Name=id
part
> QV_Read_List(list1, 0, obj1) = -7
! E1 - Stale
- QV_Get_Object_Attr(obj1, "id") = 0
log            -----------------
log             id = EC-0

== GetValueOfARecordThatIsNotHandedOver
record
keeps QV_Read_List
after AffectedItemQuery 1=1 | [id] 50
use GetValue RecNo=0 | Name=id
part
> QV_Read_List(list1, 0, null) = 0
0 @- ****** ERROR ****** Invalid QV_ObjPtr handle ******.
log @ ****** ERROR ****** Invalid QV_ObjPtr handle ******
= 0 FromList=List entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id] output=[]

== GetValueAndGetAttributeValueOfWhatIsNotHandedOut
value id=null
answer QV_Get_Object_Attr -7 E1 - Not selected
after EngineeringChangeOpen 1=7 | 2=EC-1 | [id] 50
use GetValue RecNo=0 | Name=id
part
- QV_Get_Object_Attr(obj1, "id") = -7
log            -----------------
log             id = 
9 @- Value=-.
= 1 FromList=Object entries=1 LastRecNo=0 QV_RC=0 SelectedAttribute=[id] output=[]
answer QV_Get_Object_Attr 0 E1 - none
use GetAttributeValue RecNo=0 | AttNo=0
part
= 1 FromList=Object entries=1 LastRecNo=0 QV_RC=0 SelectedAttribute=[id] output=[id |  | 0]

== GetValueAndGetAttributeValueBeforeAnyOperation
use GetValue RecNo=0 | Name=id
9 @- LastRecNo=0- RecNo=0- Name=id- out of 0 entries.
9 @-name=id-.
log             id = 
9 @- Value=-.
now output=[]
use GetValue RecNo=5 | Name=id
9 @- LastRecNo=0- RecNo=5- Name=id- out of 0 entries.
9 @-name=id-.
log            -----------------
log             id = 
9 @- Value=-.
now LastRecNo=5
now output=[]
use GetAttributeValue !RecNo=3 | !AttNo=7
9 @- LastRecNo=5- RecNo=3- AttNo=7-.
log              = 
9 @- Name=- Value=-.
now output=[ |  | 7]

== MultiSaveStart
after MultiSaveStart
use MultiSaveStart
2 @-----Start-------------------------------------.
now entries=
now output=[0]
> QV_Start_Multisave() = 0 as QV_Start_MultiSave
now output=[1]
end 2 @-----Exit--------------------------------------.

== MultiSaveCommitAndMultiSaveDiscard
after MultiSaveStart
use MultiSaveCommit
also MultiSaveDiscard
2 @-----Start-------------------------------------.
now entries=
now output=[0]
if MultiSaveCommit: > QV_Commit_Multisave() = 0
if MultiSaveDiscard: > QV_Discard_Multisave() = 0
end 2 @-----Exit--------------------------------------.

== MultiSaveCommitAndMultiSaveDiscardWithoutAStart
answer QV_Open_List -7 E1 - refused
after AffectedItemQuery 1=1 | [] 50
use MultiSaveCommit
also MultiSaveDiscard
2 @-----Start-------------------------------------.
now entries=1
now output=[0]
2 @-----Exit--------------------------------------.

== MultiSavesThatAreSwitchedOff
answer QV_Open_List -7 E1 - refused
after MultiSaveStart
after AffectedItemQuery 1=1 | [] 50
environment QV_MULTI_SAVE=OFF
use MultiSaveStart
also MultiSaveCommit
also MultiSaveDiscard
2 @-----Start-------------------------------------.
log @ --- OFF ---
now output=[1]
