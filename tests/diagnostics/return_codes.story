What every checked call writes, told in full since other stories take it for granted.

== Process_QV_RC
answer QV_Open_Object 2147483647 E1 - none
use Process_QV_RC !1=ItemOpen | !2=QV_Set_Object_Attr | !3=id | !4=A-100 | !5=1
5 ItemOpen QV_Set_Object_Attr id A-100: QV_RC=0.
log ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = 0
now result=0
after EngineeringChangeOpen 1=1 | 2=2 | [] 50
use Process_QV_RC !1=ItemOpen | !2=QV_Set_Object_Attr | !3=id | !4=A-100 | !5=1
5 ItemOpen QV_Set_Object_Attr id A-100: QV_RC=2147483647.
log ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = 2147483647
now result=0

== Process_QV_RCOfAFailureAnswersTheStopFlag
answer QV_Open_Object -7 E1 - No such item
after EngineeringChangeOpen 1=1 | 2=2 | [] 50
use Process_QV_RC 1=ItemOpen | 2=QV_Set_Object_Attr | 3=id | 4=A-100 | 5=0
part
5 ItemOpen QV_Set_Object_Attr id A-100: QV_RC=-7.
log ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = -7
log E1 - No such item
0 ****** No such item .
err Function ItemOpen generated the following error:
err No such item 
err ---------------------------------------------------------------------
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[]
use Process_QV_RC 1=ItemOpen | 2=QV_Set_Object_Attr | 3= | 4= | 5=1
part
log ItemOpen- rc(QV_Set_Object_Attr) = -7
log E1 - No such item
0 ****** No such item .
err Function ItemOpen generated the following error:
err No such item 
err ---------------------------------------------------------------------
= 1 FromList=Object entries=0 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[]
