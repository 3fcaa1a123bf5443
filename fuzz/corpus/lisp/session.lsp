; a session
(kvt1_help "Main")
@click btnOk
(kvt1_SetSettings "##120" "2")
(quote (1 2.5 "x" (nested . pair)))
KVT1
