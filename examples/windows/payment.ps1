# A host in PowerShell: it shows a screen for a payment and prints the records, or checks the records of a batch.
#   powershell -File payment.ps1 CODE [RECORDFILE]
#   powershell -File payment.ps1 BATCH.csv BATCH.pc4
# Ends with 0 when all went well, 1 for a cancelled screen or an invalid payment, 2 for an error.
param(
  [Parameter(Mandatory = $true)][string]$First,
  [string]$Second = ''
)
Set-StrictMode -Version 2
$ErrorActionPreference = 'Stop'

# The component's error lies below those by which PowerShell tells of it.
function Write-Failure($exception) {
  while ($null -ne $exception.InnerException) { $exception = $exception.InnerException }
  $number = $exception.HResult
  # The platform's own run-time errors come as 0x800A and their number; all others are as they are.
  if (($number -band 0x7FFF0000) -eq 0x000A0000) { $number = $number -band 0xFFFF }
  Write-Output "Error $number from $($exception.Source): $($exception.Message)"
}

function Show-Payment([string]$code, [string]$file) {
  $payment = New-Object -ComObject Fiscalon.Levyra
  $payment.CompName = 'Summit Levies'
  $payment.PaidAmount = '12345' # cents
  $payment.PaidDate = '06152026' # month, day, year
  $payment.EnterName = 'Ann Walker'
  $payment.EnterTitle = 'Clerk'
  $payment.SeqNumber = '0001'
  if ($file -ne '') {
    $payment.GovFilename = $file
    $payment.WriteFile = $true
  }
  if (-not $payment.ShowLevyraScreen($code)) {
    Write-Output 'Cancelled.'
    $script:status = 1
  } elseif ($payment.WriteFile) {
    Write-Output "Written to $($payment.GovFilename)"
  } elseif ($null -ne $payment.PC4Records) {
    foreach ($record in $payment.PC4Records) { Write-Output $record.Description }
  }
}

# A row for each payment, with its number, screen, biller and amount in cents; the records of all payments, a line each.
function Test-Batch([string]$rowsName, [string]$recordsName) {
  $lines = Get-Content -LiteralPath $recordsName
  $check = New-Object -ComObject Fiscalon.clsValidateAddInfo
  foreach ($row in (Get-Content -LiteralPath $rowsName | Select-Object -Skip 1)) {
    $fields = $row.Split(',')
    $records = New-Object -ComObject Fiscalon.PC4s
    foreach ($line in $lines) {
      if ($line.Length -gt 6 -and $line.Substring(3, 4) -eq $fields[0]) { [void]$records.Add('', '', $line) }
    }
    $check.ScreenCode = $fields[1]
    $check.BillerCode = $fields[2]
    $check.PaymentAmount = $fields[3]
    $check.PC4Records = $records
    if ($check.IsInfoValid()) {
      Write-Output "$($fields[0]): valid"
    } else {
      Write-Output "$($fields[0]): invalid: $($check.InvalidReason)"
      $script:status = 1
    }
  }
}

$status = 0
try {
  if ($First -like '*.csv') { Test-Batch $First $Second } else { Show-Payment $First $Second }
} catch {
  Write-Failure $_.Exception
  $status = 2
}
exit $status
