The connection to the server.

== QvConnect
without connection
use QvConnect User=jdoe | Password=secret
* LogFile=access.log
* Opening LogFile access.log
log RZM 424.1 / QV 340
log *********************************************************************
log *****      VELRZM : VELOR/HXD - Quorvanemaster Integration      *****
log *****         (logging all SDK access to Quorvanemastr)         *****
log *********************************************************************
* Opening Error LogFile ./QVL_LOG_ERROR
err RZM 424.1 / QV 340
err *********************************************************************
err *****      VELRZM : VELOR/HXD - Quorvanemaster Integration      *****
err *****     (logging all SDK errors returned by Quorvanemastr)    *****
err *********************************************************************
now lastError=RZM 424.1 / QV 340
now output=[0 | 0]
0 RZM 424.1 / QV 340.
0 @ --- Connecting to Quorvanemaster: trying ..... >! QV_Open_Env() = 0
now output=[1 | 0]
0 @ --- Loging as user <User>: trying ..... > QV_Logon("<User>", "<Password>", "", "") = 0 as QV_Logon ""
end 1 @ --- ************************************.
end 1 @ --- *** @- RC(QV_Logon)=<QV_RC>.
end 1 @ --- ************************************.
failed 0 @ --- *** ERROR *** Unable to logon to Quorvanemaster.
0 @ --- ... done!.
now output=[1 | 1]

== QvConnectWhoseEnvironmentDoesNotOpenAndIsTriedAgain
without connection
answer QV_Open_Env -7 E1 - No licence
use QvConnect User=jdoe | Password=secret
part
0 @ --- Connecting to Quorvanemaster: trying ..... > QV_Open_Env() = -7
! E1 - No licence
= 0 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[] output=[0 | 0]
answer QV_Open_Env 0 E1 - none
use QvConnect User=jdoe | Password=secret
part
0 RZM 424.1 / QV 340.
0 @ --- Connecting to Quorvanemaster: trying ..... > QV_Open_Env() = 0
0 @ --- Loging as user jdoe: trying ..... > QV_Logon("jdoe", "secret", "", "") = 0 as QV_Logon ""

== QvConnectWhoseLogonWasRefused
without connection
answer QV_Logon -7 E1 - Unknown user
after QvConnect 1=jdoe | 2=secret
answer QV_Logon 0 E1 - none
use QvConnect User=jdoe | Password=secret
now lastError=RZM 424.1 / QV 340
now output=[1 | 0]
0 @ --- Loging as user <User>: trying ..... > QV_Logon("<User>", "<Password>", "", "") = 0 as QV_Logon ""
end 1 @ --- ************************************.
end 1 @ --- *** @- RC(QV_Logon)=<QV_RC>.
end 1 @ --- ************************************.
failed 0 @ --- *** ERROR *** Unable to logon to Quorvanemaster.
0 @ --- ... done!.
now output=[1 | 1]

== QvConnectOnceMoreOnlyResetsTheLastError
answer QV_Open_Object -7 E1 - refused
after EngineeringChangeOpen 1=1 | 2=2 | [] 50
environment QVL_LOG_FILE=other.log
environment QVL_LOG_ERROR=other.errors
use QvConnect User=jdoe | Password=secret
now lastError=RZM 424.1 / QV 340
now result=1
now output=[1 | 1]

== QvExit
after BomExplode item_number=br-1 | [level] 50
after EngineeringChangeOpen 1=1 | 2=2 | [] 50
use QvExit
now result=1
now output=[1 | 1]
calls DestroyListOrReport
2 @-----Start-------. > QV_Destroy_Report(report) = 0
> QV_Destroy_List(list) = 0
end 2 @-----Exit--------.
returns
> QV_Logoff() = 0
now output=[1 | 0]
> QV_Close_Env() = 0
now output=[0 | 0]

== QvExitWithoutAUser
without connection
answer QV_Logon -7 E1 - Unknown user
after QvConnect 1=jdoe | 2=secret
use QvExit
now result=1
now output=[1 | 0]
> QV_Close_Env() = 0
now output=[0 | 0]

== QvExitWithoutAConnection
without connection
use QvExit
now result=1
now output=[0 | 0]
